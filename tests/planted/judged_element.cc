#include "tests/planted/judged_element.h"

#include "build_paths.h"

namespace planted {

JudgedElement::JudgedElement() : session_(profile()), plugin_(PLUGIN_FILE) {}

JudgedElement &JudgedElement::instance() {
  static JudgedElement element;
  return element;
}

std::unique_ptr<element::Transaction> JudgedElement::transaction(const Draft &draft) const {
  return element::make_transaction(tree_of(draft.running), tree_of(draft.candidate), profile());
}

host::Verdict JudgedElement::judge(const element::Transaction &transaction) {
  return host::validate_commit(plugin_, session_, transaction);
}

diagnosis::Diagnosis JudgedElement::diagnose(const element::Transaction &transaction,
                                             const diagnosis::Options &options) {
  return diagnosis::diagnose(plugin_, session_, transaction, judge(transaction), options);
}

std::vector<host::PointVerdict> spoken(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> answers;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::accepted) continue;
    answers.insert(point.answer == host::Answer::rejected ? answers.begin() : answers.end(), point);
  }
  return answers;
}

}  // namespace planted
