#include "tests/diagnosis/judged_element.h"

#include <utility>

#include "build_paths.h"

JudgedElement::JudgedElement()
    : profile_(
          {16, 16, 16, 16},
          {{"eth0", 1, 1000}, {"eth1", 2, 1001}, {"eth2", 3, 1002}, {"eth3", 4, 1003}, {"service-port-1", 5, 1004}}),
      session_(profile_),
      plugin_(PLUGIN_FILE) {}

JudgedElement &JudgedElement::instance() {
  static JudgedElement element;
  return element;
}

std::unique_ptr<element::Transaction> JudgedElement::transaction(element::Tree running, element::Tree candidate) const {
  return element::make_transaction(std::move(running), std::move(candidate), profile_);
}

host::Verdict JudgedElement::judge(const element::Transaction &transaction) {
  return host::validate_commit(plugin_, session_, transaction);
}

diagnosis::Diagnosis JudgedElement::diagnose(const element::Transaction &transaction,
                                             const diagnosis::Options &options) {
  return diagnosis::diagnose(plugin_, session_, transaction, judge(transaction), options);
}
