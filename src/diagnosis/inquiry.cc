#include "diagnosis/inquiry.h"

#include <algorithm>

namespace diagnosis {
namespace {

bool gives(const host::Verdict &verdict, const host::PointVerdict &answer) {
  return std::any_of(verdict.points.begin(), verdict.points.end(),
                     [&answer](const host::PointVerdict &point) { return is_same_answer(point, answer); });
}

}  // namespace

Inquiry::Inquiry(const host::Plugin &plugin, host::HostSession &session, const Places &places, const Options &options)
    : plugin_(plugin), session_(session), places_(places), options_(options) {}

std::optional<host::Verdict> Inquiry::ask(const Shapes &shapes) {
  const Shapes asked = without_left_out(shapes);
  return ask(places_.running(asked), places_.candidate(asked));
}

std::optional<host::Verdict> Inquiry::ask(element::Tree running, element::Tree candidate) {
  if (!may_ask()) return std::nullopt;
  if (options_.progress) options_.progress(calls_, faults);
  ++calls_;
  breach_.clear();
  const auto transaction = element::make_transaction(std::move(running), std::move(candidate), session_.profile());
  try {
    return host::validate_commit(plugin_, session_, *transaction);
  } catch (const host::ContractError &error) {
    breach_ = error.what();
    return std::nullopt;
  }
}

bool Inquiry::draws(const Shapes &shapes, const Wanted &wanted) {
  const std::optional<host::Verdict> verdict = ask(shapes);
  if (!verdict) return false;
  if (!wanted.on_rejected_commit && verdict->decision == host::Decision::rejected) return false;
  return gives(*verdict, wanted.answer);
}

bool Inquiry::is_in_running(const Shapes &shapes, const Wanted &wanted) {
  element::Tree running = places_.running(without_left_out(shapes));
  if (running.root().children.empty()) return false;
  element::Tree nothing(running.schema());
  const std::optional<host::Verdict> verdict = ask(std::move(nothing), std::move(running));
  return verdict && gives(*verdict, wanted.answer);
}

Shapes Inquiry::without_left_out(Shapes shapes) const {
  for (const std::size_t begin : left_out_) {
    std::fill(shapes.begin() + static_cast<std::ptrdiff_t>(begin),
              shapes.begin() + static_cast<std::ptrdiff_t>(places_[begin].end), Shape::dropped);
  }
  return shapes;
}

bool Inquiry::may_ask() {
  const auto spent = std::chrono::steady_clock::now() - begin_;
  over_ = over_ || calls_ >= options_.budget.calls || spent >= options_.budget.time;
  return !over_;
}

bool is_same_answer(const host::PointVerdict &a, const host::PointVerdict &b) {
  return a.point == b.point && a.answer == b.answer && a.text == b.text;
}

}  // namespace diagnosis
