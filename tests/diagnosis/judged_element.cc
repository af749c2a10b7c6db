#include "tests/diagnosis/judged_element.h"

#include <utility>

#include "tests/support/build_under_test.h"

JudgedElement::JudgedElement()
    : profile_({kVpnLimit, kAccessInterfaceLimit, kEncapsulationVlanLimit, kEncapsulationRangeLimit},
               {{"eth1", 1, 1003},
                {"eth2", 2, 1001},
                {"eth3", 3, 1002},
                {"eth%%", 4, 1000},
                {"service-port-1", 5, 1005},
                {"service-port-2", 6, 1004},
                {"service-port-x", 7, 1006}}),
      session_(profile_),
      plugin_(plugin_file()) {}

JudgedElement &JudgedElement::instance() {
  static JudgedElement element;
  return element;
}

std::unique_ptr<element::Transaction> JudgedElement::transaction(const brute_force::Configurations &commit) const {
  return element::make_transaction(commit.running, commit.candidate, profile_);
}

host::Verdict JudgedElement::judge(const brute_force::Configurations &commit) {
  ++questions_;
  return host::validate_commit(plugin_, session_, *transaction(commit));
}

std::vector<host::PointVerdict> JudgedElement::ask_all_points(const brute_force::Configurations &commit) {
  ++questions_;
  return host::validate_commit(plugin_, session_, *transaction(commit), {.all_points = true}).points;
}

diagnosis::Diagnosis JudgedElement::diagnose(const brute_force::Configurations &commit,
                                             const diagnosis::Options &options) {
  const auto whole = transaction(commit);
  return diagnosis::diagnose(plugin_, session_, *whole, host::validate_commit(plugin_, session_, *whole), options);
}

diagnosis::Plan JudgedElement::find_plan(const brute_force::Configurations &commit, const diagnosis::Options &options) {
  return diagnosis::find_plan(plugin_, session_, *transaction(commit), options);
}
