#include "tests/support/key_path.h"

#include <cstdio>
#include <map>
#include <stdexcept>
#include <utility>

namespace scripted {

namespace {

std::map<std::uint32_t, std::string> &names() {
  static std::map<std::uint32_t, std::string> names{
      {0x7307a7db, "dot1q"}, {0x7397e13c, "bridge-domain"}, {0x1342932d, "access-interface"}, {0x1b61cee1, "pw-id"}};
  return names;
}

std::uint32_t fnv_hash(std::string_view name) {
  std::uint32_t hash = 2166136261U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

}  // namespace

std::uint32_t tag_of(std::string_view name) {
  for (const auto &[tag, known] : names()) {
    if (known == name) return tag;
  }
  const std::uint32_t tag = fnv_hash(name);
  if (!names().emplace(tag, name).second) throw std::logic_error("two names with one tag: " + std::string(name));
  return tag;
}

std::string name_of(std::uint32_t tag) {
  const auto known = names().find(tag);
  if (known != names().end()) return known->second;
  char text[16];
  std::snprintf(text, sizeof text, "0x%08x", tag);
  return text;
}

KeyPath::KeyPath(std::vector<Values> elements) : elements_(std::move(elements)) {
  if (elements_.size() > MAXDEPTH) throw std::logic_error("a key path is at most 25 elements deep");
  path_.len = static_cast<int>(elements_.size());
  for (auto &element : path_.v) {
    for (confd_value_t &value : element) value.type = C_NOEXISTS;
  }
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    if (elements_[i].size() >= MAXKEYLEN) throw std::logic_error("an entry has at most eight keys");
    for (std::size_t k = 0; k < elements_[i].size(); ++k) path_.v[i][k] = borrowed(elements_[i][k]);
  }
}

}  // namespace scripted
