#include "drawn_commit.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace fuzz {

namespace {

using element::Node;
using element::NodeKind;
using element::SchemaNode;
using element::Tree;
using element::Value;
using element::ValueType;
using Keys = std::vector<Value>;
using Texts = std::initializer_list<const char *>;

/// The input, byte by byte; zeros when it has ended.
class Bytes {
 public:
  Bytes(const std::uint8_t *data, std::size_t size) : next_(data), end_(data + size) {}

  bool at_end() const { return next_ == end_; }
  unsigned next() { return at_end() ? 0 : *next_++; }

  template <typename Choices>
  auto one_of(const Choices &choices) {
    return choice(choices, next());
  }

  /// As one_of, in half of the cases one of the first two, so that what is drawn meets.
  template <typename Choices>
  auto mostly_usual(const Choices &choices) {
    const unsigned drawn = next();
    return choice(choices, drawn < 0x80 ? drawn % 2 : drawn);
  }

 private:
  template <typename Choices>
  static auto choice(const Choices &choices, unsigned drawn) {
    return *std::next(choices.begin(), static_cast<std::ptrdiff_t>(drawn % choices.size()));
  }

  const std::uint8_t *next_;
  const std::uint8_t *end_;
};

constexpr Texts kGroups{"G", "H", "G%n", "vpws-group x", "a b}", ""};
constexpr Texts kVpns{"V", "W", "V%s", "vpn y", "{\"", ""};
constexpr Texts kInterfaces{"gigabit-ethernet-1/1/1",
                            "gigabit-ethernet-1/1/2",
                            "service-port-1",
                            "service-port",
                            "service-port--3",
                            "lag 1",
                            ""};
constexpr Texts kVlans{"100", "200", "101", "0", "", "x", "99999999999"};
constexpr std::array<std::uint32_t, 12> kNumbers{1, 100, 0, 2, 3, 101, 200, 2000, 2001, 4094, 0x80000000, 0xffffffff};
// Addresses as words in memory, which is how one of the applications keeps them as numbers too.
constexpr std::array<std::uint32_t, 3> kAddresses{0x0100000a, 0x0200000a, 0};
constexpr std::array<std::optional<std::uint32_t>, 5> kLimits{1000, 2, 0, std::nullopt, 0xffffffff};
constexpr Texts kPoints{"vpn_access_valp", "vpn_peer_valp",        "vpn_name_valp",     "vlm_memb_valp",
                        "vpn_sp_valp",     "vpn_access_intf_valp", "vpn_overflow_valp", "unknown_valp"};

bool holds(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

const Texts &texts_of(const SchemaNode &leaf) {
  const std::string &name = leaf.name == "name" ? leaf.parent->name : leaf.name;
  if (holds(name, "group")) return kGroups;
  if (holds(name, "vpn") || name == "int-vpws") return kVpns;
  return name == "vlan" ? kVlans : kInterfaces;
}

Value wrong_value(const SchemaNode &leaf) {
  if (leaf.type == ValueType::int32) return std::uint32_t{1};
  return std::int32_t{1};
}

Value draw_value(Bytes &bytes, const SchemaNode &leaf) {
  const bool is_wrong = bytes.next() >= 0xf8;
  if (is_wrong) return wrong_value(leaf);
  switch (leaf.type) {
    case ValueType::empty:
      return element::Empty{};
    case ValueType::text:
      return std::string(bytes.mostly_usual(texts_of(leaf)));
    case ValueType::ipv4:
      return element::Ipv4{bytes.mostly_usual(kAddresses)};
    case ValueType::enumeration:
      return element::Enumeration{static_cast<std::int32_t>(1 + bytes.next() % 3)};
    case ValueType::uint16:
      return static_cast<std::uint16_t>(bytes.mostly_usual(kNumbers));
    case ValueType::int32:
      return static_cast<std::int32_t>(bytes.mostly_usual(kNumbers));
    default:
      return leaf.name == "peer" ? bytes.mostly_usual(kAddresses) : bytes.mostly_usual(kNumbers);
  }
}

// An entry keeps at least one key: without any it would stand for its list.
Keys draw_keys(Bytes &bytes, const SchemaNode &list) {
  Keys keys;
  for (std::size_t i = 0; i < list.key_count; ++i) keys.push_back(draw_value(bytes, *list.children[i]));
  const unsigned form = bytes.next();
  if (form == 0xff && keys.size() > 1) keys.pop_back();
  if (form == 0xfe) keys.emplace_back(std::int32_t{1});
  return keys;
}

element::Path draw_path(Bytes &bytes, const SchemaNode &node) {
  element::Path path;
  for (const SchemaNode *step = &node; step->parent != nullptr; step = step->parent) path.push_back({step, {}});
  std::reverse(path.begin(), path.end());
  for (element::PathStep &step : path) {
    if (step.schema->kind == NodeKind::list) step.keys = draw_keys(bytes, *step.schema);
  }
  return path;
}

template <typename Predicate>
void collect(const SchemaNode &from, Predicate is_wanted, std::vector<const SchemaNode *> &found) {
  for (const auto &node : from.children) {
    if (is_wanted(*node)) found.push_back(node.get());
    collect(*node, is_wanted, found);
  }
}

template <typename Predicate>
std::vector<const SchemaNode *> nodes_where(const SchemaNode &root, Predicate is_wanted) {
  std::vector<const SchemaNode *> found;
  collect(root, is_wanted, found);
  return found;
}

const std::vector<const SchemaNode *> &lists_of(const element::Schema &schema) {
  static const auto lists =
      nodes_where(schema.root(), [](const SchemaNode &node) { return node.kind == NodeKind::list; });
  return lists;
}

/// Mostly a node that the point stands on, else an entry of any list.
const SchemaNode &draw_node(Bytes &bytes, const element::Schema &schema, const std::string &point) {
  const auto nodes = nodes_where(schema.root(), [&point](const SchemaNode &node) {
    return std::any_of(node.validation_points.begin(), node.validation_points.end(),
                       [&point](const element::ValidationPoint &one) { return one.name == point; });
  });
  const bool is_any = nodes.empty() || bytes.next() >= 0xf0;
  return *bytes.one_of(is_any ? lists_of(schema) : nodes);
}

Node &descend(Tree &tree, const element::Path &path) {
  Node *node = &tree.root();
  for (const element::PathStep &step : path) {
    node = &element::child(*node, *step.schema);
    if (!step.keys.empty()) node = &element::put_entry(*node, step.keys);
  }
  return *node;
}

/// An entry and the leafs that it sets, which may stand in containers of the entry.
struct DrawnEntry {
  element::Path path;
  std::vector<std::pair<const SchemaNode *, Value>> leafs;
};

void draw_leafs(Bytes &bytes, const SchemaNode &parent, DrawnEntry &entry) {
  for (std::size_t i = parent.key_count; i < parent.children.size(); ++i) {
    const SchemaNode &node = *parent.children[i];
    if (node.kind == NodeKind::container) draw_leafs(bytes, node, entry);
    const bool is_set = node.kind == NodeKind::leaf && bytes.next() >= 0x40;
    if (is_set) entry.leafs.emplace_back(&node, draw_value(bytes, node));
  }
}

Node &place_below(Node &entry, const SchemaNode &node) {
  if (node.parent == entry.schema) return element::child(entry, node);
  return element::child(place_below(entry, *node.parent), node);
}

void write(Tree &tree, const DrawnEntry &drawn) {
  Node &entry = descend(tree, drawn.path);
  for (const auto &[leaf, value] : drawn.leafs) place_below(entry, *leaf).value = value;
}

void draw_entry(Bytes &bytes, DrawnCommit &commit) {
  const SchemaNode &list = *bytes.one_of(lists_of(commit.running.schema()));
  const unsigned trees = bytes.next() % 4;
  DrawnEntry entry{draw_path(bytes, list), {}};
  draw_leafs(bytes, list, entry);
  if (trees != 1) write(commit.candidate, entry);
  if (trees != 2) write(commit.running, entry);
}

element::Profile draw_profile(Bytes &bytes) {
  element::CardLimits limits;
  limits.vpn_max = bytes.mostly_usual(kLimits);
  limits.access_ports = bytes.mostly_usual(kLimits);
  limits.selective_encapsulation_vlan_entries = bytes.mostly_usual(kLimits);
  limits.selective_encapsulation_vlan_ranges = bytes.mostly_usual(kLimits);
  return {limits,
          {{"gigabit-ethernet-1/1/1", 1001, 1}, {"gigabit-ethernet-1/1/2", 1002, 2}, {"service-port-1", 1003, 100}}};
}

host::InjectedFailure draw_failure(Bytes &bytes) {
  const std::size_t function = bytes.next();
  if (function >= host::seam_function_count) return {};
  const unsigned nth = bytes.next();
  return {static_cast<host::SeamFunction>(function), 1 + nth / 2, nth % 2 == 1};
}

}  // namespace

DrawnCommit draw_commit(const element::Schema &schema, const std::uint8_t *data, std::size_t size) {
  Bytes bytes(data, size);
  DrawnCommit commit(schema);
  commit.point = bytes.one_of(kPoints);
  commit.failure = draw_failure(bytes);
  commit.profile = draw_profile(bytes);
  const SchemaNode &node = draw_node(bytes, schema, commit.point);
  commit.path = draw_path(bytes, node);
  if (node.kind == NodeKind::leaf) commit.value = draw_value(bytes, node);
  while (!bytes.at_end()) draw_entry(bytes, commit);
  commit.running.sort();
  commit.candidate.sort();
  return commit;
}

}  // namespace fuzz
