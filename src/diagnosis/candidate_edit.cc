#include "diagnosis/candidate_edit.h"

#include <string>
#include <utility>

#include "element/datastore/lookup.h"
#include "l2vpn/edit.h"

namespace diagnosis {

bool is_static_member(const element::Path &path) {
  return path.size() > 1 && path.back().schema->name == l2vpn::name::interface && !path.back().keys.empty() &&
         path[path.size() - 2].schema->name == "vlan";
}

void apply(const CandidateEdit &edit, element::Tree &candidate) {
  const std::string path = to_text(edit.path);
  const element::Node *node = std::as_const(candidate).find(path);
  if (node == nullptr) return;
  if (is_static_member(edit.path)) {
    candidate.erase(path);
    const std::uint32_t vlan = element::number(edit.values.front()).value_or(0);
    return l2vpn::put_static_member(candidate, {vlan, element::to_text(edit.path.back().keys.front())});
  }
  if (edit.path.back().keys.empty()) {
    candidate.put(path, edit.values.front());
    return;
  }
  element::Nodes children = node->children;
  candidate.erase(path);
  element::Path list = edit.path;
  list.back().keys.clear();
  const std::string list_path = to_text(list);
  candidate.put_entry(list_path, edit.values).children = std::move(children);
  candidate.sort_list(list_path);
}

}  // namespace diagnosis
