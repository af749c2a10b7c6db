#ifndef ELEMENT_SCHEMA_SCHEMA_H
#define ELEMENT_SCHEMA_SCHEMA_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "element/schema/value.h"

struct ly_ctx;

namespace element {

enum class NodeKind { container, list, leaf };

enum class ValueType {
  none,
  empty,
  text,
  int8,
  int16,
  int32,
  int64,
  uint8,
  uint16,
  uint32,
  uint64,
  boolean,
  ipv4,
  enumeration
};

/// A validation point that stands on a node.
struct ValidationPoint {
  std::string name;
  bool each_node = false;  ///< a commit fires it for each node it changes, otherwise for the first one only
};

/// One node of the data model, read once from the compiled modules.
struct SchemaNode {
  std::string name;
  std::string module;
  NodeKind kind = NodeKind::container;
  bool presence = false;               ///< containers: existence has a meaning of its own
  bool derived = false;                ///< kept by the element's applications, never written by an operator
  bool mandatory = false;              ///< leafs: every instance of the parent has it
  std::size_t choice = 0;              ///< from 1 among the parent's choices; 0: in none
  std::size_t choice_case = 0;         ///< from 1 among the choice's cases: nodes of two cases never stand together
  ValueType type = ValueType::none;    ///< leafs
  std::uint32_t tag = 0;               ///< hash of the name, the same wherever the name stands
  std::uint32_t module_tag = 0;        ///< hash of the module's name
  std::size_t position = 0;            ///< among the parent's children, schema order
  std::size_t key_count = 0;           ///< lists: the first key_count children are the keys, in key order
  const SchemaNode *parent = nullptr;  ///< null for the root
  std::vector<std::pair<std::string, std::int32_t>> enumerators;  ///< enumeration leafs: name and number
  std::vector<ValidationPoint> validation_points;                 ///< those that stand on this node
  std::vector<std::unique_ptr<SchemaNode>> children;              ///< schema order

  /// The child of this name, or null. A module prefix ("base:config") must be the child's module when it is given.
  const SchemaNode *child(std::string_view name_with_optional_prefix) const;
};

/// The hash of a node's or module's name. Four names have fixed tags, which others compare or pass.
std::uint32_t node_tag(std::string_view name);

/// The value that `text` stands for in a leaf of this node's type, or nothing where it is not a value of that type.
std::optional<Value> value_from_text(const SchemaNode &leaf, std::string_view text);

/// The data model of the element: its own shipped modules, compiled. Modules come with the program; a user's never
/// load.
class Schema {
 public:
  /// Compiles the shipped modules. Throws std::runtime_error when they do not compile.
  Schema();
  ~Schema();
  Schema(const Schema &) = delete;
  Schema &operator=(const Schema &) = delete;

  /// A nameless container that holds the top-level nodes in schema order.
  const SchemaNode &root() const { return root_; }

  /// The node at a path of names without keys, prefixes optional ("/mpls/l2vpn-config"), or null.
  const SchemaNode *find(std::string_view path) const;

  /// The libyang context, for parsing configuration.
  ly_ctx *context() const { return context_; }

 private:
  ly_ctx *context_ = nullptr;
  SchemaNode root_;
};

}  // namespace element

#endif
