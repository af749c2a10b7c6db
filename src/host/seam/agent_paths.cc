#include "host/seam/agent_paths.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "host/seam/agent.h"
#include "host/seam/agent_values.h"

namespace host {

namespace {

const element::SchemaNode *child_of_tag(const element::SchemaNode *parent, std::uint32_t tag) {
  if (parent == nullptr) return nullptr;
  for (const auto &child : parent->children) {
    if (child->tag == tag) return child.get();
  }
  return nullptr;
}

void add_keys(std::string &text, const confd_value_t *keys) {
  char before = '{';
  for (std::size_t i = 0; i < MAXKEYLEN && keys[i].type != C_NOEXISTS; ++i) {
    const element::Value key = from_agent(keys[i]).value_or(std::monostate{});
    text += before;
    text += element::quoted_key(element::to_text(key));
    before = ' ';
  }
  text += '}';
}

/// A name that the data model does not have there is written as its tag.
std::string path_text(const element::SchemaNode &root, const confd_hkeypath_t &path) {
  std::string text;
  const element::SchemaNode *node = &root;
  for (int i = std::min(path.len, MAXDEPTH) - 1; i >= 0; --i) {
    const confd_value_t *const element = path.v[i];
    if (element->type != C_XMLTAG) {
      add_keys(text, element);
      continue;
    }
    const std::uint32_t tag = element->val.xmltag.tag;
    node = child_of_tag(node, tag);
    text += '/';
    text += node == nullptr ? std::to_string(tag) : node->name;
  }
  return text.empty() ? "/" : text;
}

}  // namespace

KeyPath::KeyPath(const element::Path &path) {
  for (const element::PathStep &step : path) {
    push(*step.schema);
    if (!step.keys.empty()) push(*step.schema, step.keys);
  }
}

void KeyPath::push(const element::SchemaNode &name) { add({&name, nullptr}); }

void KeyPath::push(const element::SchemaNode &list, const std::vector<element::Value> &keys) { add({&list, &keys}); }

void KeyPath::add(Element element) {
  if (size_ == elements_.size()) throw std::length_error("a key path is deeper than the seam can carry");
  elements_[size_++] = element;
}

void KeyPath::write(confd_hkeypath_t &path) const {
  path.len = static_cast<int>(size_);
  for (std::size_t i = 0; i < size_; ++i) {
    const Element &element = elements_[size_ - 1 - i];
    if (element.keys == nullptr) {
      path.v[i][0] = tag_of(*element.schema);
      continue;
    }
    const std::size_t count = std::min<std::size_t>(element.keys->size(), MAXKEYLEN - 1);
    for (std::size_t k = 0; k < count; ++k)
      path.v[i][k] = borrowed_value((*element.keys)[k], key_leaf(*element.schema, k));
    path.v[i][count].type = C_NOEXISTS;
  }
  for (std::size_t i = size_; i < MAXDEPTH; ++i) path.v[i][0].type = C_NOEXISTS;
}

}  // namespace host

int confd_pp_kpath(char *buf, int bufsiz, const confd_hkeypath_t *hkeypath) {
  host::HostSession *session = host::enter_agent(host::SeamFunction::confd_pp_kpath);
  if (session == nullptr) return CONFD_ERR;
  if (session->transaction() == nullptr) return host::fail(CONFD_ERR_NOSESSION);

  const std::string text = host::path_text(session->transaction()->candidate.schema().root(), *hkeypath);
  const auto room = static_cast<std::size_t>(std::max(bufsiz, 0));
  return std::snprintf(buf, room, "%s", text.c_str());
}
