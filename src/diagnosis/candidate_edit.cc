#include "diagnosis/candidate_edit.h"

#include <string>
#include <utility>

namespace diagnosis {

void apply(const CandidateEdit &edit, element::Tree &candidate) {
  const std::string path = to_text(edit.path);
  const element::Node *node = std::as_const(candidate).find(path);
  if (node == nullptr) return;
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
