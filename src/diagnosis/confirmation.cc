#include "diagnosis/confirmation.h"

#include <algorithm>
#include <map>

namespace diagnosis {

bool is_in_force(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const bool is_nothing = std::none_of(entries.begin(), entries.end(), [&](std::uint32_t entry) {
    return context.entries.node(entry).before != nullptr;
  });
  if (is_nothing) return false;
  const std::optional<NumberSet> answer = context.oracle.ask({entries, {}, true});
  return answer && contains(*answer, message);
}

namespace {

// A limit has many sets of parties; so many are asked about beside the rest.
constexpr std::size_t kMostWitnesses = 64;

/// Conflicts that stay or go together: all of a limit that share parties, all that differ in their triggers only, or a
/// single one.
struct Cluster {
  NumberSet entries;
  NumberSet parties;
  std::uint32_t message = 0;
  bool is_preexisting = false;
  NumberSet own_parties;  ///< without the triggers
  std::vector<std::size_t> conflicts;
};

void join(Cluster &cluster, const Cluster &other) {
  cluster.entries = united(cluster.entries, other.entries);
  cluster.parties = united(cluster.parties, other.parties);
  cluster.conflicts.insert(cluster.conflicts.end(), other.conflicts.begin(), other.conflicts.end());
}

/// Moves the clusters that belong to `own` into it.
void join_same(const SearchContext &context, std::vector<Cluster> &clusters, Cluster &own) {
  const Message &message = context.messages[own.message];
  const auto is_same = [&](const Cluster &other) {
    if (other.message != own.message) return false;
    if (!message.is_cumulative()) {
      return own.is_preexisting && other.is_preexisting && own.own_parties == other.own_parties;
    }
    return !message.counts() || !intersection(other.parties, own.parties).empty();
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
    Cluster own{conflict.entries,        conflict.innermost(), conflict.message,
                conflict.is_preexisting, conflict.parties,     {i}};
    const bool may_join = own.is_preexisting || context.messages[own.message].is_cumulative();
    if (may_join && !context.oracle.has_ended()) join_same(context, clusters, own);
    clusters.push_back(std::move(own));
  }
  return clusters;
}

/// All that may matter to whether the entries draw the message.
NumberSet scope_of(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const rules::Rule *rule = context.messages[message].rule;
  const bool is_everywhere = rule != nullptr && rule->scope == rules::Scope::configuration;
  return is_everywhere ? context.all() : context.scope(entries);
}

/// Sets of a limit's parties, each of which draws it. Together the parties may have other conflicts, which hide it.
std::vector<NumberSet> witnesses(const SearchContext &context, const Cluster &cluster,
                                 const FoundConflicts &conflicts) {
  std::vector<NumberSet> sets;
  if (!context.messages[cluster.message].counts()) return sets;
  for (const std::size_t i : cluster.conflicts) {
    const std::vector<NumberSet> &own = conflicts[i].exceeding;
    if (own.empty()) sets.push_back(conflicts[i].entries);
    sets.insert(sets.end(), own.begin(), own.end());
  }
  if (sets.size() > kMostWitnesses) sets.resize(kMostWitnesses);
  return sets;
}

/// The entries of the cluster and all that are party of no other.
NumberSet surroundings(const SearchContext &context, const Cluster &cluster, const std::vector<std::uint32_t> &counts) {
  NumberSet set = scope_of(context, cluster.entries, cluster.message);
  std::erase_if(set, [&counts](std::uint32_t entry) { return counts[entry] != 0; });
  return context.entries.closure(united(united(set, cluster.entries), cluster.parties));
}

std::vector<std::uint32_t> count_parties(const Entries &entries, const std::vector<Cluster> &clusters) {
  std::vector<std::uint32_t> counts(entries.size(), 0);
  for (const Cluster &cluster : clusters) {
    for (const std::uint32_t party : cluster.parties) ++counts[party];
  }
  return counts;
}

bool is_any_confirmed(const Cluster &cluster, const FoundConflicts &conflicts) {
  return std::any_of(cluster.conflicts.begin(), cluster.conflicts.end(),
                     [&conflicts](std::size_t conflict) { return conflicts[conflict].is_confirmed; });
}

/// The cluster's message is drawn beside all that is party of no other; a limit's also by a few of its parties.
bool is_drawn(const SearchContext &context, const Cluster &cluster, const std::vector<std::uint32_t> &counts,
              const FoundConflicts &conflicts) {
  const std::optional<NumberSet> answer = context.oracle.ask({surroundings(context, cluster, counts), {}});
  if (!answer) return is_any_confirmed(cluster, conflicts);
  if (contains(*answer, cluster.message)) return true;
  const std::vector<NumberSet> sets = witnesses(context, cluster, conflicts);
  if (sets.empty()) return false;
  NumberSet unconcerned = scope_of(context, cluster.entries, cluster.message);
  std::erase_if(unconcerned, [&counts](std::uint32_t entry) { return counts[entry] != 0; });
  return std::any_of(sets.begin(), sets.end(), [&](const NumberSet &set) {
    return context.oracle.reproduces(context.entries.closure(united(unconcerned, set)), cluster.message);
  });
}

/// What makes the library look: innermost entries that the commit touches, removed ones first, then added ones.
NumberSet possible_triggers(const SearchContext &context, const FoundConflict &conflict) {
  NumberSet order;
  for (const ChangeStatus status : {ChangeStatus::removed, ChangeStatus::added, ChangeStatus::changed}) {
    for (const std::uint32_t entry : context.entries.innermost(conflict.entries)) {
      if (context.status_of(entry) == status) order.push_back(entry);
    }
  }
  return order;
}

/// Leaves out one innermost entry after the other, as long as the fault is in force without it.
NumberSet without_bystanders(const SearchContext &context, NumberSet set, std::uint32_t message) {
  for (bool is_stable = false; !is_stable;) {
    is_stable = true;
    for (const std::uint32_t entry : context.entries.innermost(set)) {
      const NumberSet rest = minus(set, {entry});
      if (!is_in_force(context, rest, message)) continue;
      set = rest;
      is_stable = false;
      break;
    }
  }
  return set;
}

}  // namespace

bool is_drawn_beside(const SearchContext &context, const FoundConflict &conflict, const NumberSet &members) {
  const NumberSet scope = scope_of(context, conflict.entries, conflict.message);
  const NumberSet beside = context.entries.closure(united(minus(scope, members), conflict.entries));
  return context.oracle.reproduces(beside, conflict.message);
}

void drop_mended(const SearchContext &context, FoundConflicts &conflicts) {
  std::vector<Cluster> clusters = clusters_of(context, conflicts);
  for (bool is_stable = false; !is_stable;) {
    const std::vector<std::uint32_t> counts = count_parties(context.entries, clusters);
    std::vector<Cluster> left;
    for (const Cluster &cluster : clusters) {
      if (is_drawn(context, cluster, counts, conflicts)) left.push_back(cluster);
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

std::vector<std::uint32_t> likely_triggers(const SearchContext &context, const NumberSet &core,
                                           const element::SchemaNode *kind) {
  const Entries &entries = context.entries;
  std::map<const element::SchemaNode *, std::size_t> of_kind;
  std::vector<std::pair<std::size_t, std::uint32_t>> by_rank;
  for (std::uint32_t entry = 0; entry < entries.size(); ++entry) {
    if (context.status_of(entry) == ChangeStatus::unchanged || contains(core, entry)) continue;
    const element::SchemaNode *own = entries.node(entry).schema;
    const std::size_t rank = ++of_kind[own];
    if (rank <= kMostTriggers) by_rank.emplace_back(own == kind ? 0 : rank, entry);
  }
  std::sort(by_rank.begin(), by_rank.end());
  std::vector<std::uint32_t> triggers;
  for (const auto &[rank, entry] : by_rank) triggers.push_back(entry);
  return triggers;
}

// Where the fault is in force without an entry, that entry only makes the library look. What stood around it alone goes
// with it, unless the fault is its own.
void find_triggers(const SearchContext &context, FoundConflict &conflict) {
  if (conflict.enough_of_any != 0) return;  // a limit whose triggers are known
  NumberSet core = conflict.entries;
  for (const std::uint32_t entry : possible_triggers(context, conflict)) {
    const NumberSet rest = minus(core, {entry});
    if (!is_in_force(context, rest, conflict.message)) continue;
    conflict.triggers.push_back(entry);
    core = rest;
  }
  normalise(conflict.triggers);
  if (conflict.triggers.empty()) {
    conflict.is_preexisting = is_in_force(context, conflict.entries, conflict.message);
    return;
  }
  conflict.is_preexisting = true;
  conflict.parties = context.entries.innermost(without_bystanders(context, core, conflict.message));
}

}  // namespace diagnosis
