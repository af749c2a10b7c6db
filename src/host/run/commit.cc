#include "host/run/commit.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "confd_dp.h"
#include "host/run/triggered_points.h"
#include "host/run/unreadable_names.h"
#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"
#include "host/seam/session_state.h"

namespace host {

namespace {

/// Serves a transaction while it is being decided.
class Serving {
 public:
  Serving(HostSession &session, const element::Transaction &transaction)
      : session_(session), before_(session.transaction()) {
    session_.statistics = {};
    session_.serve(&transaction);
  }
  ~Serving() { session_.serve(before_); }
  Serving(const Serving &) = delete;
  Serving &operator=(const Serving &) = delete;

 private:
  HostSession &session_;
  const element::Transaction *before_;
};

[[noreturn]] void contract_violation(const std::string &point, const std::string &fault) {
  throw ContractError(fmt::format("{}: {}", point, fault));
}

Answer answer_of(const std::string &point, std::int32_t result, bool has_text) {
  if (result == CONFD_OK) return Answer::accepted;
  if (result != CONFD_ERR && result != CONFD_VALIDATION_WARN) {
    contract_violation(point, fmt::format("answered {}; 0, -1 or -3 was expected", result));
  }
  if (!has_text) contract_violation(point, fmt::format("answered {} without a text", result));
  return result == CONFD_ERR ? Answer::rejected : Answer::warned;
}

// A cursor that is left open is no violation: the element closes it when the call has ended, and the statistics count
// it.
void require_nothing_kept(const std::string &point, const CallStatistics &statistics) {
  if (statistics.open_sessions != 0)
    contract_violation(point, fmt::format("CDB sessions left open: {}", statistics.open_sessions));
  if (statistics.owned_values > 0)
    contract_violation(point, fmt::format("values not freed: {}", statistics.owned_values));
  if (statistics.owned_values < 0) {
    contract_violation(point, fmt::format("values freed too often: {}", -statistics.owned_values));
  }
}

std::int32_t ask(const Plugin &plugin, TriggeredPoint &triggered, confd_trans_ctx &context) {
  confd_hkeypath_t path;
  triggered.key_path().write(path);
  confd_value_t value = borrowed_value(*triggered.value, *triggered.node);
  try {
    return plugin.validate(&context, &path, &value);
  } catch (const std::bad_array_new_length &error) {
    // A length that no memory would be enough for is the library's own fault, though it is a kind of bad_alloc.
    contract_violation(triggered.point, fmt::format("an exception left the call: {}", error.what()));
  } catch (const std::bad_alloc &) {
    throw;  // the library has no part in a lack of memory
  } catch (const std::exception &error) {
    contract_violation(triggered.point, fmt::format("an exception left the call: {}", error.what()));
  }
}

confd_trans_ctx make_context(HostSession &session, std::string &point) {
  confd_trans_ctx context{};
  context.mode = CONFD_READ;
  context.dbname = CONFD_CANDIDATE;
  context.thandle = session.transaction_handle();
  context.vcb_opaque = session.middleware();
  context.validate_opaque = point.data();
  return context;
}

/// The path is written where the answer is kept.
PointVerdict decide(const Plugin &plugin, HostSession &session, TriggeredPoint &triggered, bool keep_accepted) {
  confd_trans_ctx context = make_context(session, triggered.point);
  session.question = {session.question.number + 1, triggered.point};
  const std::int32_t result = ask(plugin, triggered, context);
  session.question.point.clear();
  session.state().cursors.close_all();
  std::string text = result == CONFD_OK || context.error.str == nullptr ? "" : context.error.str;
  const Answer answer = answer_of(triggered.point, result, !text.empty());
  require_nothing_kept(triggered.point, session.statistics);
  const bool is_kept = keep_accepted || answer != Answer::accepted;
  return {triggered.point, is_kept ? element::to_text(triggered.path()) : std::string(), answer, std::move(text)};
}

/// A point that asked for unreadable paths, and how many there were when it had answered.
struct AskedPoint {
  std::string point;
  std::size_t paths = 0;
};

// The names are collected only where a path could not be read, for a walk through both configurations costs time.
std::vector<UnreadableQuestion> unreadable_questions(const element::Transaction &transaction,
                                                     const std::vector<UnreadablePath> &paths,
                                                     const std::vector<AskedPoint> &asked) {
  std::vector<UnreadableQuestion> questions;
  if (paths.empty()) return questions;
  const UnreadableNames names(transaction);
  std::size_t i = 0;
  for (const AskedPoint &point : asked) {
    for (; i < point.paths; ++i) {
      const std::string name = names.cause_of(paths[i]);
      if (name.empty()) continue;
      questions.push_back({point.point, std::string(host::name(paths[i].function)), paths[i].path, name});
    }
  }
  return questions;
}

Decision decision_of(const std::vector<PointVerdict> &points) {
  const auto answered = [&points](Answer answer) {
    return std::any_of(points.begin(), points.end(), [answer](const auto &point) { return point.answer == answer; });
  };
  if (answered(Answer::rejected)) return Decision::rejected;
  return answered(Answer::warned) ? Decision::accepted_with_warnings : Decision::accepted;
}

}  // namespace

Verdict validate_commit(const Plugin &plugin, HostSession &session, const element::Transaction &transaction,
                        const CommitOptions &options) {
  const Serving serving(session, transaction);
  std::vector<TriggeredPoint> points = triggered_points(transaction);
  Verdict verdict;
  verdict.points_fired = points.size();
  std::vector<AskedPoint> asked;
  const std::vector<UnreadablePath> &unreadable = session.statistics.unreadable_paths;
  for (TriggeredPoint &triggered : points) {
    const std::size_t before = unreadable.size();
    PointVerdict answered = decide(plugin, session, triggered, options.keep_accepted);
    const bool is_accepted = answered.answer == Answer::accepted;
    const bool is_last = answered.answer == Answer::rejected && !options.all_points;
    if (unreadable.size() != before) asked.push_back({triggered.point, unreadable.size()});
    if (!is_accepted || options.keep_accepted) verdict.points.push_back(std::move(answered));
    if (is_last) break;
  }
  verdict.decision = decision_of(verdict.points);
  verdict.unreadable = unreadable_questions(transaction, session.statistics.unreadable_paths, asked);
  verdict.statistics = session.statistics;
  return verdict;
}

}  // namespace host
