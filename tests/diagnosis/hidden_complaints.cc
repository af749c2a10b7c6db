#include "tests/diagnosis/hidden_complaints.h"

#include <algorithm>

#include "tests/element/print.h"

namespace brute_force {
namespace {

// What hides a complaint has one cause or two.
constexpr std::size_t kMostParts = 2;

bool shares_a_party(const Complaint &one, const Complaint &other) {
  return std::any_of(one.parties.begin(), one.parties.end(),
                     [&other](const std::string &party) { return other.parties.count(party) != 0; });
}

/// The complaint's parties stand as the commit has them.
bool leaves_parties_alone(const PartSet &taken_back, const Complaint &complaint) {
  return std::none_of(taken_back.begin(), taken_back.end(), [&complaint](const Part &part) {
    const auto is_at = [&part](const std::string &party) { return part.path.starts_with(party); };
    return part.status == diagnosis::ChangeStatus::removed ||
           std::any_of(complaint.parties.begin(), complaint.parties.end(), is_at);
  });
}

bool has_value(const element::Tree &candidate, const std::string &value) {
  const Lines lines = print(candidate);
  return std::any_of(lines.begin(), lines.end(), [&value](const std::string &line) { return line.starts_with(value); });
}

}  // namespace

std::set<Complaint> HiddenComplaints::without_hidden(const std::set<Complaint> &after, const std::string &value) {
  std::set<Complaint> mended;
  std::set_difference(before_.begin(), before_.end(), after.begin(), after.end(), std::inserter(mended, mended.end()));
  std::set<Complaint> left = after;
  std::erase_if(left, [&](const Complaint &complaint) {
    return before_.count(complaint) == 0 && is_hidden(complaint, mended, value);
  });
  return left;
}

bool HiddenComplaints::is_hidden(const Complaint &complaint, const std::set<Complaint> &mended,
                                 const std::string &value) {
  return search_.has_set(kMostParts, [&](const PartSet &taken_back, const std::set<Complaint> &complaints) {
    if (complaints.count(complaint) == 0 || !leaves_parties_alone(taken_back, complaint)) return false;
    const bool hid = std::any_of(mended.begin(), mended.end(), [&](const Complaint &other) {
      return shares_a_party(other, complaint) && complaints.count(other) == 0;
    });
    return hid && !has_value(brute_force::taken_back(commit_, taken_back).candidate, value);
  });
}

}  // namespace brute_force
