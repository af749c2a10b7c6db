#include "diagnosis/description.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace diagnosis {
namespace {

using element::Node;

std::optional<std::string> value_text(const Node *leaf) {
  if (leaf == nullptr || leaf->schema->kind != element::NodeKind::leaf) return std::nullopt;
  if (leaf->schema->type == element::ValueType::empty) return std::nullopt;
  return element::to_text(leaf->value);
}

Detail describe_detail(const MergedTree &tree, std::uint32_t number) {
  const MergedNode &node = tree[number];
  return {status_of(node), tree.path_of(number), value_text(node.before), value_text(node.after)};
}

/// Calls `visit` with the numbers of the entry's own leafs and ranges.
template <typename Visit>
void visit_own(const MergedTree &tree, std::uint32_t number, Visit visit) {
  for (std::uint32_t inner = number + 1; inner < tree[number].end;) {
    const MergedNode &node = tree[inner];
    if (node.is_thing()) {
      inner = node.list_end;
      continue;
    }
    if (node.is_leaf() || node.is_entry()) visit(inner);
    ++inner;
  }
}

void name_party(Party &party) {
  for (const element::PathStep &step : party.path) {
    if (step.keys.empty()) continue;
    const std::string &list = step.schema->name;
    const std::string key = element::to_text(step.keys.front());
    if (list == "vpls-group" || list == "vpws-group") party.group = list + " " + key;
    if (list == "vpn") party.vpn = key;
    if (list == "access-interface" || list == "interface" || list == "l3-interface") party.interface = key;
    if (list == "service-port") party.interface = list + "-" + key;
    if (list == "neighbor" || list == "backup-neighbor") party.neighbor = key;
  }
}

/// The places of numbers in an order.
class Places {
 public:
  explicit Places(const std::vector<std::uint32_t> &order) {
    for (std::size_t place = 0; place < order.size(); ++place) places_.emplace(order[place], place);
  }

  std::vector<std::size_t> of(const NumberSet &set) const {
    std::vector<std::size_t> places;
    for (const std::uint32_t number : set) {
      const auto found = places_.find(number);
      if (found != places_.end()) places.push_back(found->second);
    }
    return places;
  }

 private:
  std::unordered_map<std::uint32_t, std::size_t> places_;
};

// What the commit touches comes first.
std::vector<Party> describe_all(const Entries &entries, NumberSet &numbers) {
  std::vector<std::pair<Party, std::uint32_t>> described;
  for (const std::uint32_t number : numbers) described.emplace_back(describe_party(entries, number), number);
  std::stable_partition(described.begin(), described.end(),
                        [](const auto &one) { return one.first.status != ChangeStatus::unchanged; });
  std::vector<Party> parties;
  numbers.clear();
  for (auto &[party, number] : described) {
    parties.push_back(std::move(party));
    numbers.push_back(number);
  }
  return parties;
}

}  // namespace

Party describe_party(const Entries &entries, std::uint32_t entry) {
  const MergedTree &tree = entries.tree();
  const std::uint32_t number = entries[entry].node;
  Party party;
  party.path = tree.path_of(number);
  party.status = status_of(tree[number]);
  name_party(party);
  const auto add = [&](std::uint32_t inner) { party.details.push_back(describe_detail(tree, inner)); };
  if (entries[entry].parent != kNone) visit_own(tree, entries[entries[entry].parent].node, add);
  visit_own(tree, number, add);
  const bool has_changed_detail = std::any_of(party.details.begin(), party.details.end(), [](const Detail &detail) {
    return detail.status != ChangeStatus::unchanged;
  });
  if (party.status == ChangeStatus::unchanged && has_changed_detail) party.status = ChangeStatus::changed;
  return party;
}

ChangePart describe_part(const Entries &entries, const RevertibleChanges &changes, std::uint32_t part) {
  const MergedTree &tree = entries.tree();
  const std::uint32_t number = changes[part].node;
  const MergedNode &node = tree[number];
  ChangePart described{changes[part].status, tree.path_of(number), value_text(node.before), value_text(node.after), {}};
  if (described.status != ChangeStatus::changed || node.is_leaf()) return described;
  visit_own(tree, number, [&](std::uint32_t inner) {
    if (changes.part_of(inner) == part) described.details.push_back(describe_detail(tree, inner));
  });
  return described;
}

Finding describe_finding(const SearchContext &context, const FoundConflicts &conflicts,
                         const std::vector<std::size_t> &group) {
  NumberSet parties;
  NumberSet triggers;
  for (const std::size_t i : group) {
    parties = united(parties, conflicts[i].parties);
    triggers = united(triggers, conflicts[i].triggers);
  }
  triggers = minus(triggers, parties);
  const FoundConflict &first = conflicts[group.front()];
  const RestrictedCommit smallest{first.entries, {}};
  Finding finding{context.messages[first.message].verdict,
                  false,
                  describe_all(context.entries, parties),
                  describe_all(context.entries, triggers),
                  false,
                  {},
                  0,
                  0,
                  true,
                  {running_tree(smallest, context.entries, context.changes),
                   candidate_tree(smallest, context.entries, context.changes)},
                  {},
                  {},
                  context.messages[first.message].rule_id()};
  if (context.messages[first.message].counts()) {
    finding.enough = first.too_many;
    finding.enough_at_most = first.most_too_many;
  }
  const Places party_places(parties);
  const Places trigger_places(triggers);
  for (const std::size_t i : group) {
    const FoundConflict &conflict = conflicts[i];
    finding.is_preexisting = finding.is_preexisting || conflict.is_preexisting;
    finding.is_minimal = finding.is_minimal && conflict.is_minimal;
    finding.conflicts.push_back({context.messages[conflict.message].verdict, party_places.of(conflict.parties),
                                 trigger_places.of(conflict.triggers)});
  }
  return finding;
}

}  // namespace diagnosis
