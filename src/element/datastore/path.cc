#include "element/datastore/path.h"

#include <fmt/format.h>

namespace element {
namespace {

class PathReader {
 public:
  PathReader(const Schema &schema, std::string_view text) : schema_(schema), text_(text) {}

  Path read() {
    Path path;
    const SchemaNode *node = &schema_.root();
    if (at_end() || peek() != '/') fail("a path starts with '/'");
    while (!at_end()) {
      if (peek() != '/') fail(fmt::format("expected '/' or the end before \"{}\"", rest()));
      ++position_;
      if (at_end() && path.empty()) return path;
      node = step(*node, path);
    }
    return path;
  }

 private:
  const SchemaNode *step(const SchemaNode &parent, Path &path) {
    const std::string_view name = take_name();
    const SchemaNode *node = parent.child(name);
    if (node == nullptr) fail(fmt::format("\"{}\" is not in the data model there", name));
    path.push_back({node, {}});
    if (!at_end() && peek() == '{') path.back().keys = take_keys(*node);
    return node;
  }

  std::string_view take_name() {
    const std::size_t begin = position_;
    while (!at_end() && peek() != '/' && peek() != '{') ++position_;
    return text_.substr(begin, position_ - begin);
  }

  std::vector<Value> take_keys(const SchemaNode &list) {
    if (list.kind != NodeKind::list) fail(fmt::format("\"{}\" is not a list and takes no keys", list.name));
    const std::vector<std::string> texts = take_key_texts();
    if (texts.size() != list.key_count) {
      fail(fmt::format("\"{}\" has {} keys, not {}", list.name, list.key_count, texts.size()));
    }
    std::vector<Value> keys;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const SchemaNode &leaf = *list.children[i];
      std::optional<Value> key = value_from_text(leaf, texts[i]);
      if (!key) fail(fmt::format("\"{}\" is not a value of key \"{}\" of \"{}\"", texts[i], leaf.name, list.name));
      keys.push_back(std::move(*key));
    }
    return keys;
  }

  std::vector<std::string> take_key_texts() {
    ++position_;
    std::vector<std::string> keys;
    for (;;) {
      while (!at_end() && peek() == ' ') ++position_;
      if (at_end()) fail("'}' is missing");
      if (peek() == '}') break;
      keys.push_back(take_key());
    }
    ++position_;
    return keys;
  }

  std::string take_key() {
    std::string key;
    bool quoted = false;
    for (; !at_end(); ++position_) {
      const char c = peek();
      if (c == '"') {
        quoted = !quoted;
      } else if (quoted && c == '\\' && position_ + 1 < text_.size()) {
        key += text_[++position_];
      } else if (!quoted && (c == ' ' || c == '}')) {
        break;
      } else {
        key += c;
      }
    }
    if (quoted) fail("a quote is not closed");
    return key;
  }

  bool at_end() const { return position_ == text_.size(); }
  char peek() const { return text_[position_]; }
  std::string_view rest() const { return text_.substr(position_); }

  [[noreturn]] void fail(const std::string &reason) const {
    throw PathError(fmt::format("path \"{}\": {}", text_, reason));
  }

  const Schema &schema_;
  std::string_view text_;
  std::size_t position_ = 0;
};

}  // namespace

Path parse_path(const Schema &schema, std::string_view text) { return PathReader(schema, text).read(); }

std::string to_text(const Path &path) {
  if (path.empty()) return "/";
  std::string text;
  for (const PathStep &step : path) {
    text += '/';
    text += step.schema->name;
    if (step.keys.empty()) continue;
    char separator = '{';
    for (const Value &key : step.keys) {
      text += separator;
      text += quoted_key(to_text(key));
      separator = ' ';
    }
    text += '}';
  }
  return text;
}

std::string quoted_key(std::string_view key) {
  if (!key.empty() && key.find_first_of(" {}\"\\") == std::string_view::npos) return std::string(key);
  std::string quoted = "\"";
  for (const char c : key) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace element
