#include "tests/planted/judged_element.h"

#include "confd_lib.h"

namespace planted {

JudgedElement::JudgedElement() : seam_(profile()), plugin_(PLUGIN_FILE) {}

JudgedElement &JudgedElement::instance() {
  static JudgedElement element;
  return element;
}

std::unique_ptr<element::Transaction> JudgedElement::transaction(const Draft &draft) const {
  return element::make_transaction(tree_of(draft.running), tree_of(draft.candidate), profile());
}

host::Verdict JudgedElement::judge(const element::Transaction &transaction) {
  return host::validate_commit(plugin_, seam_, transaction);
}

diagnosis::Diagnosis JudgedElement::diagnose(const element::Transaction &transaction,
                                             const diagnosis::Options &options) {
  return diagnosis::diagnose(plugin_, seam_, transaction, judge(transaction), options);
}

std::vector<host::PointVerdict> spoken(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> answers;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.result == CONFD_OK) continue;
    answers.insert(point.result == CONFD_ERR ? answers.begin() : answers.end(), point);
  }
  return answers;
}

}  // namespace planted
