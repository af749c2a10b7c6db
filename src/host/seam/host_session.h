#ifndef HOST_SEAM_SEAM_H
#define HOST_SEAM_SEAM_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"

namespace host {

struct SessionState;

/// Every platform function that a plug-in can call.
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

/// A call whose path is none of the data model's, so that it failed without a look at the configuration; or one whose
/// path has keys in quotes, which are read without them.
struct UnreadablePath {
  SeamFunction function = SeamFunction::count;
  std::string path;               ///< as the caller's format and arguments give it
  std::vector<std::string> keys;  ///< as the platform reads them; none where it cannot read the path
};

/// The platform calls since the last reset, and what they opened or allocated. Whatever is still open or owned by the
/// plug-in after a validation call was leaked by it.
struct CallStatistics {
  std::array<std::uint64_t, seam_function_count> calls{};
  std::int64_t open_cursors = 0;  ///< opened and not destroyed by the plug-in, though the element closes it later
  std::int64_t open_sessions = 0;
  std::int64_t owned_values = 0;   ///< strings that the plug-in must free and has not yet freed
  std::vector<int> timeouts;       ///< seconds of every time-out extension
  std::vector<std::string> trace;  ///< "category: text" of every trace call
  std::vector<UnreadablePath> unreadable_paths;
};

/// Lets the n-th call of a function fail, counted from 1 since the statistics were reset; n = 0: none fails. Functions
/// without a result cannot fail. The management agent's functions fail with CONFD_ERR_OS (a lost connection) and leave
/// their outputs as they were; a cursor that could not move stands on no entry.
struct InjectedFailure {
  SeamFunction function = SeamFunction::count;
  std::uint64_t nth = 0;
  bool and_all_later = false;
};

/// Implements the platform's functions: they answer from this session's transaction and card profile. A process has at
/// most one session at a time; the constructor throws std::logic_error where there is one already. The profile must
/// outlive the session.
class HostSession {
 public:
  explicit HostSession(const element::Profile &profile);
  ~HostSession();
  HostSession(const HostSession &) = delete;
  HostSession &operator=(const HostSession &) = delete;

  /// The process's session, or null.
  static HostSession *active();

  /// Sets the transaction that reads are answered from; it must live until the next serve(). Null: every read fails.
  /// Closes all cursors and frees the error texts of earlier validation calls.
  void serve(const element::Transaction *transaction);

  const element::Transaction *transaction() const { return transaction_; }
  const element::Profile &profile() const { return *profile_; }

  /// The socket, handle and middleware instance that a plug-in must pass to reach this session.
  int maapi_socket() const;
  int transaction_handle() const;
  void *middleware();

  /// What the platform's functions keep between calls.
  SessionState &state() { return *state_; }

  CallStatistics statistics;
  InjectedFailure injected_failure;

  /// What is being asked, for those who watch.
  struct Question {
    std::uint64_t number = 0;  ///< counts the questions of the session, from 1
    std::string point;         ///< empty between the questions
  };
  Question question;

  /// Called first in each platform call; empty: nobody watches. It must not call the platform.
  std::function<void(SeamFunction)> on_call;

  /// Counts a call. True where it must fail.
  bool enter(SeamFunction function);

 private:
  const element::Profile *profile_;
  const element::Transaction *transaction_ = nullptr;
  std::unique_ptr<SessionState> state_;
};

}  // namespace host

#endif
