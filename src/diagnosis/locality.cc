#include "diagnosis/locality.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "diagnosis/port_use.h"
#include "diagnosis/revertible_changes.h"
#include "element/datastore/lookup.h"

namespace diagnosis {
namespace {

// To read so many entries takes less time than a question about them.
constexpr std::uint32_t kLookEvery = 1024;

struct Use {
  Vlans vlans;
  std::uint32_t entry = 0;
};

bool is_group(const MergedNode &node) { return node.schema->name.ends_with("-group"); }

std::string key_text(const MergedNode &node) { return element::to_text(node.node().keys.front()); }

}  // namespace

Locality::Locality(const Entries &entries, std::function<bool()> is_over)
    : entries_(entries), is_over_(std::move(is_over)), leaders_(entries.size()) {
  std::iota(leaders_.begin(), leaders_.end(), 0U);
  join_vpns();
  join_ports();
  join_pseudowires();
  join_uplinks();
  collect();
}

template <typename Visit>
void Locality::for_each_entry(Visit visit) {
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    if (entry % kLookEvery == 0 && is_over_()) return;
    visit(entry);
  }
}

std::uint32_t Locality::leader(std::uint32_t entry) const {
  while (leaders_[entry] != entry) entry = leaders_[entry] = leaders_[leaders_[entry]];
  return entry;
}

void Locality::join(std::uint32_t a, std::uint32_t b) { leaders_[leader(a)] = leader(b); }

void Locality::join_vpns() {
  for_each_entry([this](std::uint32_t entry) {
    const std::uint32_t around = entries_[entry].parent;
    if (around != kNone && !is_group(entries_.node(around))) join(entry, around);
  });
}

// A sweep over the VLANs of each port joins what overlaps.
void Locality::join_ports() {
  std::unordered_map<std::string, std::vector<Use>> uses;
  const auto add = [&uses](std::uint32_t entry, const std::optional<PortUse> &use) {
    if (!use) return;
    std::vector<Use> &known = uses[use->port];
    for (const Vlans &vlans : use->vlans) known.push_back({vlans, entry});
  };
  for_each_entry([&](std::uint32_t entry) {
    add(entry, port_use(entries_, entry));
    const bool has_two = entries_.node(entry).before != nullptr && entries_.node(entry).after != nullptr;
    if (has_two) add(entry, former_port_use(entries_, entry));
  });
  for (auto &[port, known] : uses) {
    std::sort(known.begin(), known.end(), [](const Use &a, const Use &b) { return a.vlans.first < b.vlans.first; });
    std::uint32_t last = known.front().vlans.last;
    for (std::size_t i = 1; i < known.size(); ++i) {
      if (known[i].vlans.first <= last) join(known[i - 1].entry, known[i].entry);
      last = std::max(last, known[i].vlans.last);
    }
  }
}

void Locality::join_pseudowires() {
  std::unordered_map<std::string, std::uint32_t> first;
  const auto add = [&](std::uint32_t entry, const std::optional<std::string> &wire) {
    if (wire) join(entry, first.try_emplace(*wire, entry).first->second);
  };
  for_each_entry([&](std::uint32_t entry) {
    add(entry, pseudowire(entries_, entry));
    add(entry, former_pseudowire(entries_, entry));
  });
}

void Locality::join_uplinks() {
  std::map<std::uint32_t, std::uint32_t> vlans;
  std::map<std::string, std::uint32_t> layer3;
  for_each_entry([&](std::uint32_t entry) {
    const MergedNode &node = entries_.node(entry);
    if (node.schema->name == "vlan") vlans[element::number(node.node().keys.front()).value_or(0)] = entry;
    if (node.schema->name == "l3-interface") layer3[key_text(node)] = entry;
  });
  for (const auto &[name, entry] : layer3) {
    const auto vlan = vlans.find(element::number_below(&entries_.node(entry).node(), {"vlan"}).value_or(0));
    if (vlan != vlans.end()) join(entry, vlan->second);
  }
  for_each_entry([&](std::uint32_t entry) {
    const MergedNode &node = entries_.node(entry);
    if (node.schema->name != "interface" || entries_[entry].parent != kNone) return;
    const auto interface = layer3.find(key_text(node));
    if (interface != layer3.end()) join(entry, interface->second);
  });
}

void Locality::collect() {
  component_of_.assign(entries_.size(), kNone);
  std::vector<std::uint32_t> component_of_leader(entries_.size(), kNone);
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    if (is_group(entries_.node(entry))) continue;
    std::uint32_t &component = component_of_leader[leader(entry)];
    if (component == kNone) {
      component = static_cast<std::uint32_t>(components_.size());
      components_.emplace_back();
    }
    component_of_[entry] = component;
    components_[component].push_back(entry);
  }
}

NumberSet Locality::around(const NumberSet &set) const {
  NumberSet found = set;
  NumberSet components;
  for (const std::uint32_t entry : set) {
    if (component_of_[entry] != kNone) components.push_back(component_of_[entry]);
  }
  normalise(components);
  for (const std::uint32_t component : components) {
    found.insert(found.end(), components_[component].begin(), components_[component].end());
  }
  normalise(found);
  return entries_.closure(found);
}

std::vector<NumberSet> Locality::bundles(std::size_t size) const {
  std::vector<bool> is_changed(components_.size(), false);
  NumberSet bare_groups;
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    if (status_of(entries_, entry) == ChangeStatus::unchanged) continue;
    if (component_of_[entry] != kNone) {
      is_changed[component_of_[entry]] = true;
    } else {
      bare_groups.push_back(entry);
    }
  }
  std::vector<NumberSet> bundles;
  NumberSet bundle = std::move(bare_groups);
  const auto close = [&] {
    if (!bundle.empty()) bundles.push_back(entries_.closure(bundle));
    bundle.clear();
  };
  for (std::size_t component = 0; component < components_.size(); ++component) {
    if (!is_changed[component]) continue;
    if (bundle.size() + components_[component].size() > size) close();
    bundle = united(bundle, components_[component]);
  }
  close();
  return bundles;
}

}  // namespace diagnosis
