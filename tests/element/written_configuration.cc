#include "written_configuration.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>
#include <string_view>

#include "element/datastore/path.h"

using element::Node;
using element::NodeKind;
using element::Path;
using element::SchemaNode;
using element::Tree;
using element::Value;

namespace {

Path with_keys(Path path, const std::vector<Value> &keys) {
  path.back().keys = keys;
  return path;
}

class Writer {
 public:
  Writer(std::uint32_t seed, std::vector<std::string> gaps) : random_(seed), gaps_(std::move(gaps)) {}
  virtual ~Writer() = default;
  Writer(const Writer &) = delete;
  Writer &operator=(const Writer &) = delete;

 protected:
  void put(std::string_view text) { written_.text += text; }
  void put_gap() { put(gaps_[random_() % gaps_.size()]); }

  /// Notes that what is written next is the node's beginning.
  void mark(const Path &path) {
    const std::string &text = written_.text;
    written_.lines.emplace(to_text(path), static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
  }

  /// The key leafs and the children of a container or entry, shuffled. In XML the keys come first, in their order.
  std::vector<Node> children_of(const Node &node, bool has_keys_first) {
    std::vector<Node> children;
    for (std::size_t i = 0; i < node.keys.size(); ++i) {
      children.emplace_back();
      children.back().schema = node.schema->children[i].get();
      children.back().value = node.keys[i];
    }
    children.insert(children.end(), node.children.begin(), node.children.end());
    const std::size_t kept = has_keys_first ? node.keys.size() : 0;
    std::shuffle(children.begin() + static_cast<std::ptrdiff_t>(kept), children.end(), random_);
    return children;
  }

  static bool is_of_other_module(const Path &path) {
    return path.size() < 2 || path[path.size() - 2].schema->module != path.back().schema->module;
  }

  WrittenConfiguration written_;

 private:
  std::mt19937 random_;
  std::vector<std::string> gaps_;
};

std::string escaped_for_xml(const std::string &text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (c == '\r') {
      escaped += "&#13;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

class XmlWriter : public Writer {
 public:
  explicit XmlWriter(std::uint32_t seed) : Writer(seed, {"", "", "\n", " \r\n", "<!-- -\n-->", "<?x\n\n?>"}) {}

  WrittenConfiguration write(const Tree &tree) {
    for (const Node &top : tree.root().children) write_node(top, {{top.schema, {}}});
    return written_;
  }

 private:
  void write_node(const Node &node, const Path &path) {
    if (node.schema->kind == NodeKind::list && !node.is_entry()) {
      for (const Node &entry : node.children) write_node(entry, with_keys(path, entry.keys));
      return;
    }
    put_gap();
    if (node.is_entry()) mark(with_keys(path, {}));
    mark(path);
    const std::string &name = node.schema->name;
    put("<" + name);
    if (is_of_other_module(path)) put(" xmlns=\"urn:element:" + node.schema->module + "\"");
    put(">");
    if (node.schema->kind == NodeKind::leaf) put(escaped_for_xml(element::to_text(node.value)));
    for (const Node &child : children_of(node, true)) write_below(child, path);
    if (node.schema->kind != NodeKind::leaf) put_gap();
    put("</" + name + ">");
  }

  void write_below(const Node &child, Path path) {
    path.push_back({child.schema, {}});
    write_node(child, path);
  }
};

class JsonWriter : public Writer {
 public:
  explicit JsonWriter(std::uint32_t seed) : Writer(seed, {"", " ", "\n", "\r\n \n"}) {}

  WrittenConfiguration write(const Tree &tree) {
    write_members(tree.root(), {});
    return written_;
  }

 private:
  void write_members(const Node &node, const Path &path) {
    put("{");
    std::string_view separator;
    for (const Node &child : children_of(node, false)) {
      put(separator);
      put_gap();
      Path below = path;
      below.push_back({child.schema, {}});
      write_member(child, below);
      separator = ",";
    }
    put_gap();
    put("}");
  }

  void write_member(const Node &node, const Path &path) {
    mark(path);
    put("\"" + (is_of_other_module(path) ? node.schema->module + ":" : "") + node.schema->name + "\"");
    put_gap();
    put(":");
    put_gap();
    if (node.schema->kind == NodeKind::leaf) {
      put(value_text(node.value));
    } else if (node.schema->kind == NodeKind::list) {
      write_entries(node, path);
    } else {
      write_members(node, path);
    }
  }

  void write_entries(const Node &list, const Path &path) {
    put("[");
    std::string_view separator;
    for (const Node &entry : list.children) {
      put(separator);
      put_gap();
      const Path entry_path = with_keys(path, entry.keys);
      mark(entry_path);
      write_members(entry, entry_path);
      separator = ",";
    }
    put("]");
  }

  static std::string value_text(const Value &value) {
    if (std::holds_alternative<element::Empty>(value)) return "[null]";
    const std::string text = element::to_text(value);
    const bool is_text = std::holds_alternative<std::string>(value) || std::holds_alternative<element::Ipv4>(value);
    return is_text ? nlohmann::json(text).dump() : text;
  }
};

}  // namespace

WrittenConfiguration written_as_xml(const Tree &tree, std::uint32_t seed) { return XmlWriter(seed).write(tree); }

WrittenConfiguration written_as_json(const Tree &tree, std::uint32_t seed) { return JsonWriter(seed).write(tree); }
