#include "diagnosis/stages.h"

#include <algorithm>

#include "diagnosis/restricted_commit.h"

namespace diagnosis {

Stages::Stages(const Entries &entries, const RevertibleChanges &changes) : entries_(entries), changes_(changes) {}

bool Stages::can_be_absent(std::uint32_t part) const {
  if (changes_[part].status != ChangeStatus::changed) return false;
  const MergedNode &node = entries_.tree()[changes_[part].node];
  return node.is_thing() || (node.is_leaf() && !node.schema->mandatory);
}

Stage Stages::by_status(PartState added, PartState changed, PartState removed) const {
  Stage stage = first();
  for (std::uint32_t part = 0; part < changes_.size(); ++part) {
    const ChangeStatus status = changes_[part].status;
    stage[part] = status == ChangeStatus::added ? added : status == ChangeStatus::removed ? removed : changed;
    if (stage[part] == PartState::absent && !can_be_absent(part)) stage[part] = PartState::before;
  }
  close(stage);
  return stage;
}

void Stages::close(Stage &stage) const {
  for (std::uint32_t part = 0; part < changes_.size(); ++part) {
    const std::uint32_t parent = changes_[part].parent;
    if (parent != kNone && stage[parent] == PartState::before) stage[part] = PartState::before;
  }
}

element::Tree Stages::tree(const Stage &stage) const {
  const MergedTree &nodes = entries_.tree();
  NumberSet reverted;
  NumberSet gone;
  NumberSet leafs;
  for (std::uint32_t part = 0; part < changes_.size(); ++part) {
    const std::uint32_t node = changes_[part].node;
    if (stage[part] == PartState::before) reverted.push_back(part);
    if (stage[part] == PartState::absent)
      nodes[node].is_thing() ? gone.push_back(nodes[node].entry) : leafs.push_back(node);
  }
  const NumberSet all = entries_.all();
  element::Tree tree = candidate_tree({gone.empty() ? all : entries_.without(all, gone), reverted}, entries_, changes_);
  for (const std::uint32_t leaf : leafs) tree.erase(to_text(nodes.path_of(leaf)));
  return tree;
}

bool is_step(const Stage &from, const Stage &to) {
  return from != to &&
         std::equal(from.begin(), from.end(), to.begin(), [](PartState a, PartState b) { return a <= b; });
}

}  // namespace diagnosis
