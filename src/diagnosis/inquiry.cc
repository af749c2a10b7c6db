#include "diagnosis/inquiry.h"

#include <algorithm>

namespace diagnosis {

Inquiry::Inquiry(const host::Plugin &plugin, host::Seam &seam, const Places &places, const Options &options)
    : plugin_(plugin), seam_(seam), places_(places), options_(options) {}

std::optional<host::Verdict> Inquiry::ask(const Shapes &shapes) {
  if (!may_ask()) return std::nullopt;
  if (options_.progress) options_.progress(calls_, faults);
  ++calls_;
  breach_.clear();
  const auto transaction =
      element::make_transaction(places_.running(shapes), places_.candidate(shapes), seam_.profile());
  try {
    return host::validate_commit(plugin_, seam_, *transaction);
  } catch (const host::ContractError &error) {
    breach_ = error.what();
    return std::nullopt;
  }
}

bool Inquiry::draws(const Shapes &shapes, const Wanted &wanted) {
  const std::optional<host::Verdict> verdict = ask(shapes);
  if (!verdict) return false;
  if (!wanted.on_rejected_commit && verdict->decision == host::Decision::rejected) return false;
  return std::any_of(verdict->points.begin(), verdict->points.end(),
                     [&wanted](const host::PointVerdict &point) { return is_same_answer(point, wanted.answer); });
}

bool Inquiry::may_ask() {
  const auto spent = std::chrono::steady_clock::now() - begin_;
  over_ = over_ || calls_ >= options_.budget.calls || spent >= options_.budget.time;
  return !over_;
}

bool is_same_answer(const host::PointVerdict &a, const host::PointVerdict &b) {
  return a.point == b.point && a.result == b.result && a.text == b.text;
}

}  // namespace diagnosis
