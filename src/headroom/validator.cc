#include "headroom/validator.h"

#include "host/seam/host_session.h"
#include "rules/rule.h"

namespace headroom {
namespace {

void add_new_names(std::vector<host::UnreadableQuestion> &known, const std::vector<host::UnreadableQuestion> &more) {
  std::set<std::string> names;
  for (const host::UnreadableQuestion &question : known) names.insert(question.name);
  for (const host::UnreadableQuestion &question : more) {
    if (!names.contains(question.name)) known.push_back(question);
  }
}

}  // namespace

host::Verdict Validator::decide(const TrialCommit &trial, bool all_points) const {
  host::HostSession session(trial.profile);
  const auto transaction = element::make_transaction(running_, trial.candidate, trial.profile);
  host::Verdict verdict = host::validate_commit(plugin_, session, *transaction, {.all_points = all_points});
  add_new_names(unreadable_, verdict.unreadable);
  return verdict;
}

std::optional<Answer> Validator::rejection(const TrialCommit &trial, const Points &ignored) const {
  for (const host::PointVerdict &point : decide(trial, !ignored.empty()).points) {
    if (point.answer == host::Answer::rejected && !ignored.contains(point.point)) return answer_of(point);
  }
  return std::nullopt;
}

Answer answer_of(const host::PointVerdict &verdict) {
  const rules::Rule *rule = rules::rule_of_message(verdict.point, verdict.text);
  return {rule == nullptr ? "" : std::string(rule->id), verdict.point, verdict.text};
}

}  // namespace headroom
