#include "host/run/commit.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "host/run/firing.h"
#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"
#include "host/seam/seam_state.h"

namespace host {

namespace {

/// Serves a transaction while it is being decided.
class Serving {
 public:
  Serving(Seam &seam, const element::Transaction &transaction) : seam_(seam), before_(seam.transaction()) {
    seam_.account = {};
    seam_.serve(&transaction);
  }
  ~Serving() { seam_.serve(before_); }
  Serving(const Serving &) = delete;
  Serving &operator=(const Serving &) = delete;

 private:
  Seam &seam_;
  const element::Transaction *before_;
};

[[noreturn]] void breach(const std::string &point, const std::string &fault) {
  throw ContractError(fmt::format("{}: {}", point, fault));
}

void require_answer(const PointVerdict &verdict) {
  switch (verdict.result) {
    case CONFD_OK:
      return;
    case CONFD_ERR:
    case CONFD_VALIDATION_WARN:
      if (verdict.text.empty()) breach(verdict.point, fmt::format("answered {} without a text", verdict.result));
      return;
    default:
      breach(verdict.point, fmt::format("answered {}; 0, -1 or -3 was expected", verdict.result));
  }
}

// A cursor that is left open is no breach: the element closes it when the call has ended, and the account shows it.
void require_nothing_kept(const std::string &point, const Account &account) {
  if (account.open_sessions != 0) breach(point, fmt::format("CDB sessions left open: {}", account.open_sessions));
  if (account.values_handed_out > 0) breach(point, fmt::format("values not freed: {}", account.values_handed_out));
  if (account.values_handed_out < 0) {
    breach(point, fmt::format("values freed too often: {}", -account.values_handed_out));
  }
}

std::int32_t ask(const Plugin &plugin, Firing &firing, confd_trans_ctx &context) {
  confd_hkeypath_t path;
  KeyPath(firing.path).write(path);
  confd_value_t value = lent(firing.value, *firing.path.back().schema);
  try {
    return plugin.validate(&context, &path, &value);
  } catch (const std::exception &error) {
    breach(firing.point, fmt::format("an exception left the call: {}", error.what()));
  }
}

confd_trans_ctx make_context(Seam &seam, std::string &point) {
  confd_trans_ctx context{};
  context.mode = CONFD_READ;
  context.dbname = CONFD_CANDIDATE;
  context.thandle = seam.transaction_handle();
  context.vcb_opaque = seam.middleware();
  context.validate_opaque = point.data();
  return context;
}

PointVerdict decide(const Plugin &plugin, Seam &seam, Firing &firing) {
  confd_trans_ctx context = make_context(seam, firing.point);
  PointVerdict verdict{firing.point, element::to_text(firing.path), 0, {}};
  verdict.result = ask(plugin, firing, context);
  seam.state().cursors.close_all();
  const bool has_text = verdict.result != CONFD_OK && context.error.str != nullptr;
  if (has_text) verdict.text = context.error.str;
  require_answer(verdict);
  require_nothing_kept(firing.point, seam.account);
  return verdict;
}

Decision decision_of(const std::vector<PointVerdict> &points) {
  const auto answered = [&points](std::int32_t result) {
    return std::any_of(points.begin(), points.end(), [result](const auto &point) { return point.result == result; });
  };
  if (answered(CONFD_ERR)) return Decision::rejected;
  return answered(CONFD_VALIDATION_WARN) ? Decision::accepted_with_warnings : Decision::accepted;
}

}  // namespace

Verdict validate_commit(const Plugin &plugin, Seam &seam, const element::Transaction &transaction,
                        const CommitOptions &options) {
  const Serving serving(seam, transaction);
  std::vector<Firing> firings = fired_points(transaction);
  Verdict verdict;
  verdict.points_fired = firings.size();
  for (Firing &firing : firings) {
    verdict.points.push_back(decide(plugin, seam, firing));
    if (verdict.points.back().result == CONFD_ERR && !options.all_points) break;
  }
  verdict.decision = decision_of(verdict.points);
  verdict.account = seam.account;
  return verdict;
}

}  // namespace host
