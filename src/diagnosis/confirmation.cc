#include "diagnosis/confirmation.h"

#include <algorithm>

namespace diagnosis {
namespace {

/// Conflicts that stay or go together: all of a limit that share parties, or a single one.
struct Cluster {
  NumberSet entries;
  NumberSet parties;
  std::uint32_t message = 0;
  std::vector<std::size_t> conflicts;
};

void join(Cluster &cluster, const Cluster &other) {
  cluster.entries = united(cluster.entries, other.entries);
  cluster.parties = united(cluster.parties, other.parties);
  cluster.conflicts.insert(cluster.conflicts.end(), other.conflicts.begin(), other.conflicts.end());
}

/// Moves the clusters of the same message that share a party into `own`.
void join_same(std::vector<Cluster> &clusters, Cluster &own) {
  const auto is_same = [&own](const Cluster &other) {
    return other.message == own.message && !intersection(other.parties, own.parties).empty();
  };
  while (true) {
    const auto same = std::find_if(clusters.begin(), clusters.end(), is_same);
    if (same == clusters.end()) return;
    join(own, *same);
    clusters.erase(same);
  }
}

std::vector<Cluster> clusters_of(const SearchContext &context, const FoundConflicts &conflicts) {
  std::vector<Cluster> clusters;
  for (std::size_t i = 0; i < conflicts.size(); ++i) {
    const FoundConflict &conflict = conflicts[i];
    Cluster own{conflict.entries, conflict.innermost(), conflict.message, {i}};
    if (context.messages[conflict.message].is_cumulative()) join_same(clusters, own);
    clusters.push_back(std::move(own));
  }
  return clusters;
}

/// The entries of the cluster and all that are party of no other.
NumberSet surroundings(const Entries &entries, const Cluster &cluster, const std::vector<std::uint32_t> &counts) {
  NumberSet set;
  for (std::uint32_t entry = 0; entry < entries.size(); ++entry) {
    if (counts[entry] == 0) set.push_back(entry);
  }
  return entries.closure(united(united(set, cluster.entries), cluster.parties));
}

std::vector<std::uint32_t> count_parties(const Entries &entries, const std::vector<Cluster> &clusters) {
  std::vector<std::uint32_t> counts(entries.size(), 0);
  for (const Cluster &cluster : clusters) {
    for (const std::uint32_t party : cluster.parties) ++counts[party];
  }
  return counts;
}

bool runs_in_force(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const bool is_nothing = std::none_of(entries.begin(), entries.end(), [&](std::uint32_t entry) {
    return context.entries.node(entry).before != nullptr;
  });
  if (is_nothing) return false;
  const std::optional<NumberSet> answer = context.oracle.ask({entries, {}, true});
  return answer && contains(*answer, message);
}

}  // namespace

void drop_mended(const SearchContext &context, FoundConflicts &conflicts) {
  std::vector<Cluster> clusters = clusters_of(context, conflicts);
  for (bool is_stable = false; !is_stable;) {
    const std::vector<std::uint32_t> counts = count_parties(context.entries, clusters);
    std::vector<Cluster> left;
    for (const Cluster &cluster : clusters) {
      const std::optional<NumberSet> answer = context.oracle.ask({surroundings(context.entries, cluster, counts), {}});
      if (!answer || contains(*answer, cluster.message)) left.push_back(cluster);
    }
    is_stable = left.size() == clusters.size();
    clusters = std::move(left);
  }
  FoundConflicts stay;
  std::vector<std::size_t> numbers;
  for (const Cluster &cluster : clusters) {
    numbers.insert(numbers.end(), cluster.conflicts.begin(), cluster.conflicts.end());
  }
  std::sort(numbers.begin(), numbers.end());
  for (const std::size_t number : numbers) stay.push_back(std::move(conflicts[number]));
  conflicts = std::move(stay);
}

// Where the fault is in force without an innermost entry, that entry only makes the library look. What stood around it
// alone goes with it, unless the fault is its own.
void find_triggers(const SearchContext &context, FoundConflict &conflict) {
  const Entries &entries = context.entries;
  conflict.is_preexisting = runs_in_force(context, conflict.entries, conflict.message);
  for (const std::uint32_t party : entries.innermost(conflict.entries)) {
    if (runs_in_force(context, minus(conflict.entries, {party}), conflict.message)) conflict.triggers.push_back(party);
  }
  if (conflict.triggers.empty()) return;
  conflict.is_preexisting = true;
  NumberSet core = minus(conflict.entries, conflict.triggers);
  for (bool is_stable = false; !is_stable;) {
    is_stable = true;
    for (const std::uint32_t party : entries.innermost(core)) {
      const NumberSet rest = minus(core, {party});
      if (!runs_in_force(context, rest, conflict.message)) continue;
      core = rest;
      is_stable = false;
      break;
    }
  }
  conflict.parties = entries.innermost(core);
}

}  // namespace diagnosis
