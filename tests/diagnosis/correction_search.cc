#include "tests/diagnosis/correction_search.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace brute_force {
namespace {

using diagnosis::ChangeStatus;

std::pair<std::ptrdiff_t, std::ptrdiff_t> rank_of(const PartSet &set) {
  const auto count = [&set](ChangeStatus status) {
    return std::count_if(set.begin(), set.end(), [status](const Part &part) { return part.status == status; });
  };
  return {count(ChangeStatus::removed), count(ChangeStatus::changed)};
}

/// What a limit counts and what a text lists changes with what is taken back.
bool is_same(const Complaint &one, const Complaint &other) {
  if (one.message != other.message) return false;
  if (!is_of_counting_rule(one.message) && !is_of_listing_rule(one.message)) return one.parties == other.parties;
  return std::any_of(one.parties.begin(), one.parties.end(),
                     [&other](const std::string &party) { return other.parties.count(party) != 0; });
}

bool holds_same(const std::set<Complaint> &complaints, const Complaint &one) {
  return std::any_of(complaints.begin(), complaints.end(),
                     [&one](const Complaint &other) { return is_same(one, other); });
}

std::vector<PartSet> best_ranked(std::vector<PartSet> sets) {
  std::vector<PartSet> best;
  for (PartSet &set : sets) {
    if (!best.empty() && rank_of(best.front()) < rank_of(set)) continue;
    if (!best.empty() && rank_of(set) < rank_of(best.front())) best.clear();
    best.push_back(std::move(set));
  }
  return best;
}

}  // namespace

bool is_mended(const std::set<Complaint> &finding, const std::set<Complaint> &before,
               const std::set<Complaint> &after) {
  return std::all_of(after.begin(), after.end(), [&](const Complaint &complaint) {
    return !holds_same(finding, complaint) && holds_same(before, complaint);
  });
}

std::set<Complaint> complaints_of(const ConflictSearch &search, const ExpectedFinding &finding) {
  std::set<Complaint> complaints;
  for (const Conflict &conflict : finding) {
    const std::vector<std::string> paths = search.entries().paths(conflict.parties);
    complaints.insert({conflict.message, {paths.begin(), paths.end()}});
  }
  return complaints;
}

CorrectionSearch::CorrectionSearch(const Configurations &commit) : commit_(commit), parts_(parts_of(commit)) {}

std::vector<PartSet> CorrectionSearch::best_for(const std::set<Complaint> &finding, std::size_t most_parts) {
  return best(most_parts, [&](const PartSet &set) { return helps(set, finding); });
}

std::vector<PartSet> CorrectionSearch::best_for_all(std::size_t most_parts) {
  return best(most_parts, [this](const PartSet &set) { return is_accepted_without(set); });
}

std::vector<PartSet> CorrectionSearch::best(std::size_t most_parts,
                                            const std::function<bool(const PartSet &)> &is_good) const {
  for (std::size_t size = 1; size <= std::min(most_parts, parts_.size()); ++size) {
    std::vector<PartSet> good;
    for (PartSet &set : closed_sets(size)) {
      if (is_good(set)) good.push_back(std::move(set));
    }
    if (!good.empty()) return best_ranked(std::move(good));
  }
  return {};
}

bool CorrectionSearch::has_set(std::size_t most_parts,
                               const std::function<bool(const PartSet &, const std::set<Complaint> &)> &is_it) {
  for (std::size_t size = 1; size <= std::min(most_parts, parts_.size()); ++size) {
    for (const PartSet &set : closed_sets(size)) {
      if (is_it(set, complaints_without(set))) return true;
    }
  }
  return false;
}

bool CorrectionSearch::helps(const PartSet &set, const std::set<Complaint> &finding) {
  return is_mended(finding, complaints_without({}), complaints_without(set));
}

bool CorrectionSearch::is_accepted_without(const PartSet &set) const {
  return answers(taken_back(commit_, set)).empty();
}

std::vector<PartSet> CorrectionSearch::closed_sets(std::size_t size) const {
  std::vector<PartSet> sets;
  for (std::size_t bits = 0; bits < std::size_t{1} << parts_.size(); ++bits) {
    if (static_cast<std::size_t>(__builtin_popcountll(bits)) != size) continue;
    PartSet set;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      if ((bits >> i & 1) != 0) set.insert(parts_[i]);
    }
    if (is_closed(parts_, set)) sets.push_back(std::move(set));
  }
  return sets;
}

const std::set<Complaint> &CorrectionSearch::complaints_without(const PartSet &set) {
  const auto known = complaints_.find(set);
  if (known != complaints_.end()) return known->second;
  const Configurations rest = taken_back(commit_, set);
  const ConflictSearch search(rest);
  return complaints_.emplace(set, complaints_of(search, search.conflicts())).first->second;
}

}  // namespace brute_force
