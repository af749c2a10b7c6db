#include "diagnosis/grouping.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

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

bool shares(const Resource &a, const Resource &b) {
  const auto is_shared_name = [&b](const std::string &name) { return b.names.count(name) != 0; };
  if (std::any_of(a.names.begin(), a.names.end(), is_shared_name)) return true;
  return std::any_of(a.vlans.begin(), a.vlans.end(), [&b](const auto &port) {
    const auto other = b.vlans.find(port.first);
    return other != b.vlans.end() && !shared_vlans(port.second, other->second).empty();
  });
}

class Grouping {
 public:
  Grouping(const SearchContext &context, const FoundConflicts &conflicts)
      : context_(context), conflicts_(conflicts), leaders_(conflicts.size()) {
    std::iota(leaders_.begin(), leaders_.end(), std::size_t{0});
    for (const FoundConflict &conflict : conflicts) resources_.push_back(resource_of(context, conflict));
  }

  std::vector<ConflictGroup> run() {
    std::map<std::uint32_t, std::vector<std::size_t>> conflicts_of_party;
    for (std::size_t i = 0; i < conflicts_.size(); ++i) {
      for (const std::uint32_t party : conflicts_[i].parties) {
        std::vector<std::size_t> &known = conflicts_of_party[party];
        for (const std::size_t other : known) {
          if (leader(i) != leader(other) && belong_together(i, other)) leaders_[leader(i)] = leader(other);
        }
        known.push_back(i);
      }
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
      leaders_[leader(i)] = leader(first.try_emplace(conflicts_[i].message, i).first->second);
    }
  }

  bool belong_together(std::size_t a, std::size_t b) const {
    const FoundConflict &one = conflicts_[a];
    const FoundConflict &other = conflicts_[b];
    if (one.message == other.message && one.parties == other.parties) return true;
    const rules::Rule *rule = context_.messages[one.message].rule;
    if (rule != context_.messages[other.message].rule) return false;
    if (rule == nullptr || resources_[a].is_message || resources_[b].is_message) return one.message == other.message;
    return shares(resources_[a], resources_[b]);
  }

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
