#include "headroom/judge.h"

#include "host/seam/host_session.h"
#include "rules/rule.h"

namespace headroom {

host::Verdict Judge::decide(const Load &load, bool all_points) const {
  host::HostSession session(load.profile);
  const auto transaction = element::make_transaction(running_, load.candidate, load.profile);
  return host::validate_commit(plugin_, session, *transaction, {.all_points = all_points});
}

std::optional<Answer> Judge::rejection(const Load &load, const Points &left_out) const {
  for (const host::PointVerdict &point : decide(load, !left_out.empty()).points) {
    if (point.answer == host::Answer::rejected && !left_out.contains(point.point)) return answer_of(point);
  }
  return std::nullopt;
}

Answer answer_of(const host::PointVerdict &verdict) {
  const rules::Rule *rule = rules::rule_of_message(verdict.point, verdict.text);
  return {rule == nullptr ? "" : std::string(rule->id), verdict.point, verdict.text};
}

}  // namespace headroom
