#ifndef HOST_SEAM_SEAM_H
#define HOST_SEAM_SEAM_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"

namespace host {

struct SeamState;

/// Every function of the seam that a plug-in can call, for counting and for faults.
enum class SeamFunction : std::size_t {
  confd_free_value,
  confd_pp_kpath,
  confd_trans_seterr,
  confd_data_set_timeout,
  maapi_num_instances,
  maapi_exists,
  maapi_init_cursor,
  maapi_get_next,
  maapi_find_next,
  maapi_destroy_cursor,
  maapi_get_elem,
  maapi_get_u_int32_elem,
  maapi_get_enum_value_elem,
  maapi_get_object,
  maapi_get_objects,
  maapi_keypath_diff_iterate,
  cdb_num_instances,
  cdb_get_objects,
  qnconfd_maapi_socket_get,
  qnconfd_instance_get,
  cdb_session_start,
  cdb_session_end,
  qnmw_trace_register_category,
  zlog,
  fm_init,
  fm_local_slot,
  fm_scalar_card_hal_vpn_vpn_max_limit,
  fm_scalar_card_vpn_mgr_access_ports,
  fm_scalar_card_selective_encapsulation_max_vlan_entries,
  fm_scalar_card_selective_encapsulation_max_vlan_ranges,
  limid_from_intfname,
  limid_to_intfname,
  limid_from_ifindex,
  limid_to_ifindex,
  valid_intfname,
  count
};

inline constexpr std::size_t seam_function_count = static_cast<std::size_t>(SeamFunction::count);

/// The function's name as the headers declare it; the session's constructor and destructor as cdb_session_start and
/// cdb_session_end.
std::string_view name(SeamFunction function);

/// What went over the seam since the last reset. Whatever is still open or handed out when a validation call has ended
/// was leaked by the plug-in.
struct Account {
  std::array<std::uint64_t, seam_function_count> calls{};
  std::int64_t open_cursors = 0;  ///< what the element itself closes, after a validation call, stays counted as open
  std::int64_t open_sessions = 0;
  std::int64_t values_handed_out = 0;  ///< strings owned by the caller and not yet freed
  std::vector<int> timeouts;           ///< seconds of every time-out extension
  std::vector<std::string> trace;      ///< "category: text" of every trace call
};

/// Makes the n-th call (from 1) of a function fail as that function fails; n = 0: none. Functions that return nothing
/// cannot fail. The agent's calls fail with CONFD_ERR_OS, which stands for a lost connection, and leave their outputs
/// as they were; a move leaves its cursor on no entry. Calls are counted by the account.
struct Fault {
  SeamFunction function = SeamFunction::count;
  std::uint64_t nth = 0;
  bool and_all_later = false;
};

/// The virtual element behind the platform's functions: it answers them from one transaction and one profile. At most
/// one is active in a process, from construction to destruction.
class Seam {
 public:
  explicit Seam(const element::Profile &profile);
  ~Seam();
  Seam(const Seam &) = delete;
  Seam &operator=(const Seam &) = delete;

  /// The active one, or null.
  static Seam *active();

  /// Answers from this transaction until the next serve(); null: no transaction, every read fails. Closes the cursors
  /// that are open and forgets the texts that transaction contexts were given.
  void serve(const element::Transaction *transaction);

  const element::Transaction *transaction() const { return transaction_; }
  const element::Profile &profile() const { return *profile_; }

  /// What a transaction context must carry for calls to reach this element.
  int maapi_socket() const;
  int transaction_handle() const;
  void *middleware();

  /// What the platform's functions keep from call to call.
  SeamState &state() { return *state_; }

  Account account;
  Fault fault;

  /// Counts a call and tells whether it is the one that must fail.
  bool enter(SeamFunction function);

 private:
  const element::Profile *profile_;
  const element::Transaction *transaction_ = nullptr;
  std::unique_ptr<SeamState> state_;
};

}  // namespace host

#endif
