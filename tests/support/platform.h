#ifndef TESTS_SUPPORT_PLATFORM_H
#define TESTS_SUPPORT_PLATFORM_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "confd_dp.h"
#include "confd_lib.h"
#include "fm.h"
#include "limid.h"
#include "tests/support/cursors.h"
#include "tests/support/datastore.h"
#include "tests/support/key_path.h"
#include "tests/support/path.h"
#include "tests/support/value.h"

namespace scripted {

/// A change of the transaction, as an iteration reports it.
struct Change {
  Path path;
  confd_iter_op op = MOP_MODIFIED;
  std::optional<Value> new_value;
  /// What the iterator gets as its key path, last element first. Unset: made from the path, with an entry's keys typed
  /// as the declared list holds them, as texts where none does.
  std::optional<std::vector<Values>> key_path;
};

/// One call of zlog; `category` is empty where it was given none.
struct TraceCall {
  std::string category;
  std::string file;
  std::size_t file_length = 0;
  std::string function;
  std::size_t function_length = 0;
  long line = 0;
  int level = 0;
  std::string text;
};

/// What the card's feature model tells; an unset limit's read fails.
struct Limits {
  std::optional<std::uint32_t> vpn_max;
  std::optional<std::uint32_t> access_ports;
  std::optional<std::uint32_t> encapsulation_entries;
  std::optional<std::uint32_t> encapsulation_ranges;
};

struct Interface {
  std::string name;
  limid_t limid = 0;
  std::int32_t ifindex = 0;
};

/// Everything that the platform's headers declare, answered from what a test declares:
///
///   scripted::Platform platform;
///   platform.list("/internal/int-vpws-group{north}/int-vpws", 2, {{text("east"), u32(5)}, {text("west"), u32(6)}});
///   platform.leaf("/base:config/service-port{7}/match/vlan/vlan-id/any");
///   platform.fail("maapi_exists", 2);
///   EXPECT_EQ(rule(platform.socket(), &platform.context()), -1);
///   EXPECT_EQ(platform.error(), "...");
///   EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
///
/// At most one is active in a process, from construction to destruction. A call that is made to fail leaves its
/// outputs as they were, with confd_errno CONFD_ERR_OS; a cursor whose move fails stands on no entry.
class Platform {
 public:
  Platform();
  ~Platform();
  Platform(const Platform &) = delete;
  Platform &operator=(const Platform &) = delete;

  /// The active one; stops the test program when there is none.
  static Platform &active();

  // The transaction.

  int socket() const { return 11; }
  int thandle() const { return 22; }
  void *middleware() { return &middleware_; }
  confd_trans_ctx &context() { return context_; }

  /// Names the validation point of the call.
  void set_point(std::string_view name);

  // What is configured: these declare the transaction's view, `running()` what CDB answers with.

  Datastore &candidate() { return candidate_; }
  Datastore &running() { return running_; }
  void list(std::string_view path, std::size_t key_count, std::vector<Values> rows = {});
  void entry(std::string_view list_path, Values values, std::size_t key_count = 0);
  void leaf(std::string_view path);
  void leaf(std::string_view path, Value value);
  void object(std::string_view path, Values values);

  /// What counting a list's entries answers, however many there are: others write to it while it is read.
  void count_as(std::string_view list_path, int count);

  /// Declares a change; iterations report changes in the order in which they were declared. The result may be altered
  /// as long as the platform lives.
  Change &change(std::string_view path, confd_iter_op op, std::optional<Value> new_value = {});

  /// The same for an entry whose keys' types matter.
  Change &change_entry(std::string_view list_path, const Values &keys, confd_iter_op op);

  /// The key path of a node, for a validation call.
  KeyPath key_path(std::string_view path) const;
  std::vector<Values> key_path_elements(const Path &path) const;

  // The card.

  Limits limits;
  void interface(std::string_view name, limid_t limid, std::int32_t ifindex);

  /// Makes a name valid that belongs to no identifier.
  void valid_name(std::string_view name) { valid_names_.emplace(name); }

  // What happened.

  /// The last text that was set on the transaction, empty when none was.
  std::string error() const { return errors_.empty() ? "" : errors_.back(); }
  const std::vector<std::string> &errors() const { return errors_; }
  const std::vector<int> &timeouts() const { return timeouts_; }
  const std::vector<TraceCall> &trace() const { return trace_; }

  /// The calls in order, "maapi_exists /base:config/service-port{7}/match/vlan/vlan-id/any"; a CDB session counts as
  /// cdb_session_start, with its datastore and the constructor's third argument, "cdb_session_start 1 true", and
  /// cdb_session_end. confd_free_value is counted, but not listed.
  const std::vector<std::string> &calls() const { return calls_; }
  std::size_t count(std::string_view function) const;
  void forget_calls();

  /// How often each function was called in this process, whatever platform was active.
  static const std::map<std::string, std::size_t, std::less<>> &calls_of_process();

  /// Makes the n-th call (from 1, since the last forget_calls()) of a function fail, or that and all later ones. What
  /// was asked for that function before no longer counts.
  void fail(std::string_view function, std::size_t nth);
  void fail_from(std::string_view function, std::size_t nth);

  /// Cursors and sessions that are still open, values not yet freed.
  std::vector<std::string> leaks() const;

  /// Calls that no caller may make: freeing what was not handed out, a cursor that was never opened, a wrong socket.
  const std::vector<std::string> &misuses() const { return misuses_; }

  // For the platform's functions.

  /// Lists and counts a call; true when it must fail.
  bool enter(std::string_view function, std::string_view detail = "");

  /// enter() for a read of the transaction at a path: the path, or none when the read fails for any reason.
  std::optional<Path> enter_read(const char *function, int sock, int handle, const char *format, va_list arguments);
  std::optional<Path> enter_cdb_read(const char *function, int sock, const char *format, va_list arguments,
                                     const std::string &detail = "");

  /// Whether the socket and the handle are this transaction's.
  bool is_transaction(int sock, int handle, std::string_view function);

  int fail_with(int error_number);
  void misuse(std::string_view what) { misuses_.emplace_back(what); }
  void hand_out(const Value &value, confd_value_t *out);
  void take_back(confd_value_t *value);
  int start_session(const void *instance, int database, bool option);
  void end_session(int sock);
  void add_error(std::string text) { errors_.push_back(std::move(text)); }
  void add_timeout(int seconds) { timeouts_.push_back(seconds); }
  void add_trace(TraceCall call) { trace_.push_back(std::move(call)); }
  const std::list<Change> &changes() const { return changes_; }
  const std::vector<Interface> &interfaces() const { return interfaces_; }
  int instances(const Path &list) const;
  bool is_valid_name(std::string_view name) const { return valid_names_.contains(std::string(name)); }

  Cursors cursors;
  const fm_slot_t slot{1, 3};

 private:
  struct Fault {
    std::size_t nth = 0;
    bool and_later = false;
  };

  std::optional<Path> read_path(const std::string &text);

  KeyCounts key_counts_;
  Datastore candidate_{key_counts_};
  Datastore running_{key_counts_};
  std::map<std::string, int> told_counts_;
  std::list<Change> changes_;

  confd_trans_ctx context_{};
  std::string point_;
  char middleware_ = 0;

  std::vector<Interface> interfaces_;
  std::set<std::string> valid_names_;

  std::vector<std::string> calls_;
  std::map<std::string, std::size_t, std::less<>> counts_;
  std::map<std::string, Fault, std::less<>> faults_;
  std::vector<std::string> errors_;
  std::vector<int> timeouts_;
  std::vector<TraceCall> trace_;
  std::vector<std::string> misuses_;
  std::map<unsigned char *, std::string> handed_out_;
  std::set<int> open_sessions_;
  int next_session_ = 101;
};

}  // namespace scripted

#endif
