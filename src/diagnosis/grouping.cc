#include "diagnosis/grouping.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <set>
#include <utility>

#include "diagnosis/name_hints.h"
#include "diagnosis/port_use.h"

namespace diagnosis {
namespace {

/// What a conflict is about.
struct Resource {
  std::map<std::string, std::vector<Vlans>> vlans;  ///< by port
  std::set<std::string> names;                      ///< ports, pseudowires
  bool is_message = false;                          ///< none of these
};

void add_vlans(const Entries &entries, const FoundConflict &conflict, Resource &resource) {
  for (const std::uint32_t party : conflict.parties) {
    std::optional<PortUse> use = port_use(entries, party);
    if (!use) continue;
    const auto [known, is_new] = resource.vlans.try_emplace(use->port, use->vlans);
    if (!is_new) known->second = shared_vlans(known->second, use->vlans);
  }
  std::erase_if(resource.vlans, [](const auto &port) { return port.second.empty(); });
}

/// Ports that the parties take something of.
void add_ports(const Entries &entries, const FoundConflict &conflict, Resource &resource) {
  for (const std::uint32_t party : conflict.parties) {
    if (const std::optional<PortUse> use = port_use(entries, party)) resource.names.insert(use->port);
  }
}

/// A party may give up one pw-id and take another: what counts is the one that the message names.
void add_pseudowires(const Entries &entries, const FoundConflict &conflict, std::string_view text, Resource &resource) {
  for (const std::uint32_t party : conflict.parties) {
    for (const auto &wire : {pseudowire(entries, party), former_pseudowire(entries, party)}) {
      if (wire && holds_name(text, std::string_view(*wire).substr(wire->find(' ') + 1))) resource.names.insert(*wire);
    }
  }
}

Resource resource_of(const SearchContext &context, const FoundConflict &conflict) {
  const Message &message = context.messages[conflict.message];
  Resource resource;
  switch (message.rule == nullptr ? rules::Resource::named : message.rule->resource) {
    case rules::Resource::vlan:
      add_vlans(context.entries, conflict, resource);
      break;
    case rules::Resource::port:
      add_ports(context.entries, conflict, resource);
      break;
    case rules::Resource::pseudowire:
      add_pseudowires(context.entries, conflict, message.verdict.text, resource);
      break;
    case rules::Resource::named:
      break;
  }
  resource.is_message = resource.vlans.empty() && resource.names.empty();
  return resource;
}

/// Disjoint ranges of VLANs, each with a conflict about it.
class VlanOwners {
 public:
  /// Adds a range with its conflict. Returns the conflicts of all ranges that it meets, which are one range from then
  /// on.
  std::vector<std::size_t> add(Vlans vlans, std::size_t conflict) {
    std::vector<std::size_t> met;
    auto next = ranges_.upper_bound(vlans.first);
    if (next != ranges_.begin() && std::prev(next)->second.last >= vlans.first) --next;
    while (next != ranges_.end() && next->first <= vlans.last) {
      vlans.first = std::min(vlans.first, next->first);
      vlans.last = std::max(vlans.last, next->second.last);
      met.push_back(next->second.conflict);
      next = ranges_.erase(next);
    }
    ranges_[vlans.first] = {vlans.last, conflict};
    return met;
  }

 private:
  struct Owner {
    std::uint32_t last = 0;
    std::size_t conflict = 0;
  };

  std::map<std::uint32_t, Owner> ranges_;  ///< by first VLAN
};

/// What the conflicts of one rule that have a party in common are about.
struct Known {
  std::map<std::string, VlanOwners> vlans;  ///< by port
  std::map<std::string, std::size_t> names;
  std::map<std::uint32_t, std::vector<std::size_t>> messages;
  std::set<std::uint32_t> joined_messages;  ///< of which a conflict is about the message itself
};

// Takes time in proportion to the conflicts, however many share a party.
class Grouping {
 public:
  Grouping(const SearchContext &context, const FoundConflicts &conflicts)
      : context_(context), conflicts_(conflicts), leaders_(conflicts.size()) {
    std::iota(leaders_.begin(), leaders_.end(), std::size_t{0});
    for (const FoundConflict &conflict : conflicts) resources_.push_back(resource_of(context, conflict));
  }

  std::vector<ConflictGroup> run() {
    std::map<std::pair<std::uint32_t, const rules::Rule *>, Known> known;
    std::map<std::pair<std::uint32_t, NumberSet>, std::size_t> same;
    for (std::size_t i = 0; i < conflicts_.size(); ++i) {
      const FoundConflict &conflict = conflicts_[i];
      join(i, same.try_emplace({conflict.message, conflict.parties}, i).first->second);
      const rules::Rule *rule = context_.messages[conflict.message].rule;
      for (const std::uint32_t party : conflict.parties) join_known(i, known[{party, rule}]);
    }
    join_lists();
    return groups();
  }

 private:
  /// A message that lists entries is one finding, whichever it lists.
  void join_lists() {
    std::map<std::uint32_t, std::size_t> first;
    for (std::size_t i = 0; i < conflicts_.size(); ++i) {
      const Message &message = context_.messages[conflicts_[i].message];
      if (!message.is_cumulative() || message.counts()) continue;
      join(i, first.try_emplace(conflicts_[i].message, i).first->second);
    }
  }

  void join_known(std::size_t i, Known &known) {
    const Resource &resource = resources_[i];
    for (const auto &[port, ranges] : resource.vlans) {
      for (const Vlans &vlans : ranges) {
        for (const std::size_t other : known.vlans[port].add(vlans, i)) join(i, other);
      }
    }
    for (const std::string &name : resource.names) join(i, known.names.try_emplace(name, i).first->second);
    join_messages(i, known);
  }

  /// Conflicts about no resource that is known belong to those of the same message.
  void join_messages(std::size_t i, Known &known) {
    const std::uint32_t message = conflicts_[i].message;
    if (resources_[i].is_message) known.joined_messages.insert(message);
    std::vector<std::size_t> &others = known.messages[message];
    others.push_back(i);
    if (known.joined_messages.count(message) == 0) return;
    for (const std::size_t other : others) join(i, other);
    others = {i};
  }

  void join(std::size_t one, std::size_t other) { leaders_[leader(one)] = leader(other); }

  std::size_t leader(std::size_t conflict) {
    while (leaders_[conflict] != conflict) conflict = leaders_[conflict] = leaders_[leaders_[conflict]];
    return conflict;
  }

  std::vector<ConflictGroup> groups() {
    std::vector<ConflictGroup> groups;
    std::map<std::size_t, std::size_t> group_of_leader;
    for (std::size_t i = 0; i < conflicts_.size(); ++i) {
      const auto [known, is_new] = group_of_leader.try_emplace(leader(i), groups.size());
      if (is_new) groups.emplace_back();
      groups[known->second].push_back(i);
    }
    return groups;
  }

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  std::vector<std::size_t> leaders_;  ///< disjoint-set forest
  std::vector<Resource> resources_;
};

}  // namespace

std::vector<ConflictGroup> group_conflicts(const SearchContext &context, const FoundConflicts &conflicts) {
  return Grouping(context, conflicts).run();
}

}  // namespace diagnosis
