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

/// A validation point that the data model attaches to a node.
struct ValidationPoint {
  std::string name;
  bool each_node = false;  ///< fired for every changed node; if false, only for the first one of a commit
};

/// One node of the data model, read once from the compiled modules.
struct SchemaNode {
  std::string name;
  std::string module;
  NodeKind kind = NodeKind::container;
  bool presence = false;               ///< containers: the container itself is configuration
  bool derived = false;                ///< written by the element's applications, never by an operator
  bool mandatory = false;              ///< leafs: every instance of the parent must have it
  std::size_t choice = 0;              ///< number of the YANG choice within the parent, from 1; 0: not in a choice
  std::size_t choice_case = 0;         ///< number of the case within the choice, from 1; cases exclude each other
  ValueType type = ValueType::none;    ///< leafs
  std::uint32_t tag = 0;               ///< node_tag of the name
  std::uint32_t module_tag = 0;        ///< node_tag of the module's name
  std::size_t position = 0;            ///< index among the parent's children
  std::size_t key_count = 0;           ///< lists: the first key_count children are the keys, in key order
  const SchemaNode *parent = nullptr;  ///< null for the root
  std::vector<std::pair<std::string, std::int32_t>> enumerators;  ///< enumeration leafs: name and number
  std::vector<ValidationPoint> validation_points;                 ///< attached to this node
  std::vector<std::unique_ptr<SchemaNode>> children;              ///< schema order

  /// The child of this name, or null. If the name has a prefix ("base:config"), it must be the child's module.
  const SchemaNode *child(std::string_view name_with_optional_prefix) const;
};

/// The hash of a node's or module's name, by which the platform identifies it. Four names have fixed tags instead,
/// because the plug-in knows these by number.
std::uint32_t node_tag(std::string_view name);

/// Converts text to a value of the leaf's type; nothing if it is not one.
std::optional<Value> value_from_text(const SchemaNode &leaf, std::string_view text);

/// A YANG module of the data model.
struct Module {
  std::string name;
  std::string name_space;
};

/// The data model of the element: the YANG modules that are embedded in the program, compiled. No other module is
/// loaded.
class Schema {
 public:
  /// Compiles the shipped modules. Throws std::runtime_error when they do not compile.
  Schema();

  /// A nameless container that holds the top-level nodes in schema order.
  const SchemaNode &root() const { return root_; }

  /// The node at a path of names without keys, prefixes optional ("/mpls/l2vpn-config"), or null.
  const SchemaNode *find(std::string_view path) const;

  /// The module that has nodes in the data model and this name, or this namespace; or null.
  const Module *find_module(std::string_view name) const;
  const Module *find_namespace(std::string_view name_space) const;

  /// The libyang context, for parsing configuration.
  ly_ctx *context() const { return context_.get(); }

 private:
  struct DestroyContext {
    void operator()(ly_ctx *context) const;
  };

  std::unique_ptr<ly_ctx, DestroyContext> context_;
  SchemaNode root_;
  std::vector<Module> modules_;
};

}  // namespace element

#endif
