// Random commits of few parts: each repair that is told, written into the candidate, makes the finding go, and nothing
// new comes but what a finding hid that goes as well.

#include <gtest/gtest.h>

#include "diagnosis/plan.h"
#include "tests/diagnosis/correction_search.h"
#include "tests/diagnosis/hidden_complaints.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/told_complaints.h"
#include "tests/diagnosis/told_repairs.h"

namespace {

using brute_force::Complaint;
using brute_force::Configurations;
using brute_force::RepairedPath;
using diagnosis::RepairKind;

std::set<Complaint> complaints_of(const Configurations &commit) {
  const brute_force::ConflictSearch search(commit);
  return complaints_of(search, search.conflicts());
}

/// A limit of which parties of several findings are counted may be hidden behind these until one is repaired.
bool may_be_hidden(const Complaint &complaint, const std::set<Complaint> &complaints) {
  return brute_force::is_of_counting_rule(complaint.message) && complaints.size() > 1;
}

std::set<Complaint> without_hidden_limits(std::set<Complaint> after, const std::set<Complaint> &before) {
  std::erase_if(after, [&](const Complaint &complaint) {
    const auto is_it = [&](const Complaint &other) { return other.message == complaint.message; };
    return may_be_hidden(complaint, after) && std::none_of(before.begin(), before.end(), is_it);
  });
  return after;
}

/// Who was given another name is known by the old one.
std::set<Complaint> with_old_names(const std::set<Complaint> &complaints, const RepairedPath &path) {
  std::set<Complaint> renamed;
  for (Complaint complaint : complaints) {
    if (complaint.parties.erase(path.after) != 0) complaint.parties.insert(path.before);
    renamed.insert(std::move(complaint));
  }
  return renamed;
}

std::string list(const std::string &title, const std::set<Complaint> &complaints) {
  std::string text = title + "\n";
  for (const Complaint &complaint : complaints) {
    text += "  " + complaint.message.text + "\n";
    for (const std::string &party : complaint.parties) text += "    " + party + "\n";
  }
  return text;
}

class Judge {
 public:
  explicit Judge(const Configurations &commit)
      : commit_(commit), before_(complaints_of(commit)), hidden_(commit, before_) {}

  void expect_repairs(const diagnosis::Finding &finding) {
    const std::set<Complaint> told = brute_force::told_complaints(finding);
    for (const diagnosis::Repair &repair : finding.repairs) {
      EXPECT_FALSE(repair.values.empty());
      for (const std::string &value : repair.values) {
        if (repair.kind == RepairKind::two_commits) {
          expect_steps(value);
        } else {
          expect_repair(repair, value, told);
        }
      }
    }
  }

  std::size_t repairs = 0;

 private:
  void expect_repair(const diagnosis::Repair &repair, const std::string &value, const std::set<Complaint> &finding) {
    SCOPED_TRACE(to_text(repair.path) + ": " + value);
    const Configurations commit = repaired(commit_, repair, value);
    const RepairedPath path = brute_force::repaired_path(repair, value);
    const std::string line = path.before == path.after ? path.after + " = " + value : path.after;
    const auto after =
        hidden_.without_hidden(without_hidden_limits(with_old_names(complaints_of(commit), path), before_), line);
    EXPECT_TRUE(brute_force::is_mended(finding, before_, after)) << list("before:", before_) << list("after:", after);
    ++repairs;
  }

  void expect_steps(const std::string &number) {
    const diagnosis::Plan plan = JudgedElement::instance().find_plan(commit_, {.budget = ample()});
    EXPECT_EQ(std::to_string(plan.stages.size()), number);
    ++repairs;
  }

  const Configurations &commit_;
  const std::set<Complaint> before_;
  brute_force::HiddenComplaints hidden_;
};

TEST(RepairProperty, a_repair_makes_its_finding_go_and_brings_no_other) {
  std::size_t repairs = 0;
  for_each_commit(112, [&repairs](const Configurations &commit) {
    const diagnosis::Diagnosis found = JudgedElement::instance().diagnose(commit, {.budget = ample()});
    Judge judge(commit);
    for (const diagnosis::Finding &finding : found.findings) judge.expect_repairs(finding);
    repairs += judge.repairs;
  });
  RecordProperty("repairs", std::to_string(repairs));
  EXPECT_GT(repairs, 0U);
}

}  // namespace
