#include "element/schema/schema.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <stdexcept>

#include "element/schema/shipped_modules.h"

namespace element {
namespace {

// Others compare or pass these four, so they are not up to the hash.
constexpr std::array<std::pair<std::string_view, std::uint32_t>, 4> kFixedTags{{
    {"dot1q", 0x7307a7db},
    {"bridge-domain", 0x7397e13c},
    {"access-interface", 0x1342932d},
    {"pw-id", 0x1b61cee1},
}};

// Top-level nodes stand in this order: what an operator writes, then what the applications derive from it.
constexpr std::array<const char *, 11> kModulesInOrder{"base",
                                                       "mpls",
                                                       "l2-vpn",
                                                       "mpls-l2vpn-vpls",
                                                       "ldp",
                                                       "internal",
                                                       "KZ-VPLS-MIB",
                                                       "KZ-VPWS-MIB",
                                                       "KZ-PWE3-MIB",
                                                       "KZ-VLAN-MANAGER-MIB",
                                                       "KZ-MGMD-ROUTER-MIB"};

LY_ERR shipped_module(const char *name, const char *, const char *submodule, const char *, void *, LYS_INFORMAT *format,
                      const char **text, ly_module_imp_data_free_clb *free_text) {
  if (submodule != nullptr) return LY_ENOTFOUND;
  for (const ShippedModule &module : shipped_modules()) {
    if (module.name != name) continue;
    *format = LYS_IN_YANG;
    *text = module.text.data();
    *free_text = nullptr;
    return LY_SUCCESS;
  }
  return LY_ENOTFOUND;
}

ValueType value_type(const lysc_node_leaf &leaf) {
  switch (leaf.type->basetype) {
    case LY_TYPE_EMPTY:
      return ValueType::empty;
    case LY_TYPE_INT8:
      return ValueType::int8;
    case LY_TYPE_INT16:
      return ValueType::int16;
    case LY_TYPE_INT32:
      return ValueType::int32;
    case LY_TYPE_INT64:
      return ValueType::int64;
    case LY_TYPE_UINT8:
      return ValueType::uint8;
    case LY_TYPE_UINT16:
      return ValueType::uint16;
    case LY_TYPE_UINT32:
      return ValueType::uint32;
    case LY_TYPE_UINT64:
      return ValueType::uint64;
    case LY_TYPE_BOOL:
      return ValueType::boolean;
    case LY_TYPE_ENUM:
      return ValueType::enumeration;
    case LY_TYPE_STRING:
      break;
    default:
      throw std::runtime_error(
          fmt::format("module {}: leaf {} has a type that the element does not serve", leaf.module->name, leaf.name));
  }
  // The compiled type no longer tells the name that it was given by.
  const auto *parsed = static_cast<const lysp_node_leaf *>(leaf.priv);
  const std::string_view name = parsed == nullptr ? "" : parsed->type.name;
  return name == "ipv4-address" || name.ends_with(":ipv4-address") ? ValueType::ipv4 : ValueType::text;
}

void read_leaf(const lysc_node_leaf &leaf, SchemaNode &node) {
  node.kind = NodeKind::leaf;
  node.type = value_type(leaf);
  if (node.type != ValueType::enumeration) return;
  const auto *type = reinterpret_cast<const lysc_type_enum *>(leaf.type);
  LY_ARRAY_COUNT_TYPE i = 0;
  LY_ARRAY_FOR(type->enums, i) { node.enumerators.emplace_back(type->enums[i].name, type->enums[i].value); }
}

void read_validation_points(const lysc_node &compiled, SchemaNode &node) {
  LY_ARRAY_COUNT_TYPE i = 0;
  LY_ARRAY_FOR(compiled.exts, i) {
    const lysc_ext_instance &extension = compiled.exts[i];
    const std::string_view name = extension.def->name;
    const bool each_node = name == "validate-each";
    if (each_node || name == "validate") node.validation_points.push_back({extension.argument, each_node});
  }
}

void read_children(const lysc_node *first, SchemaNode &parent);

/// Which of a parent's choices and of the choice's cases a node stands in; 0: none.
struct ChoicePlace {
  std::size_t choice = 0;
  std::size_t choice_case = 0;
};

std::unique_ptr<SchemaNode> read_node(const lysc_node &compiled, SchemaNode &parent, ChoicePlace place) {
  auto node = std::make_unique<SchemaNode>();
  node->name = compiled.name;
  node->module = compiled.module->name;
  node->derived = (compiled.flags & LYS_CONFIG_R) != 0;
  node->tag = node_tag(node->name);
  node->module_tag = node_tag(node->module);
  node->parent = &parent;
  node->position = parent.children.size();
  node->mandatory = (compiled.flags & LYS_MAND_TRUE) != 0;
  node->choice = place.choice;
  node->choice_case = place.choice_case;
  read_validation_points(compiled, *node);
  switch (compiled.nodetype) {
    case LYS_CONTAINER:
      node->presence = (compiled.flags & LYS_PRESENCE) != 0;
      break;
    case LYS_LIST:
      node->kind = NodeKind::list;
      break;
    case LYS_LEAF:
      read_leaf(reinterpret_cast<const lysc_node_leaf &>(compiled), *node);
      break;
    default:
      throw std::runtime_error(
          fmt::format("module {}: node {} is of a kind that the element does not serve", node->module, node->name));
  }
  read_children(lysc_node_child(&compiled), *node);
  return node;
}

void add_child(const lysc_node &compiled, SchemaNode &parent, ChoicePlace place) {
  if (parent.kind == NodeKind::list && (compiled.flags & LYS_KEY) != 0) ++parent.key_count;
  parent.children.push_back(read_node(compiled, parent, place));
}

void read_choice(const lysc_node &choice, SchemaNode &parent, std::size_t number) {
  ChoicePlace place{number, 0};
  for (const lysc_node *one = lysc_node_child(&choice); one != nullptr; one = one->next) {
    ++place.choice_case;
    for (const lysc_node *node = lysc_node_child(one); node != nullptr; node = node->next) {
      if (node->nodetype == LYS_CHOICE) {
        throw std::runtime_error(
            fmt::format("choice {} stands in a choice, which the element does not serve", node->name));
      }
      add_child(*node, parent, place);
    }
  }
}

void read_children(const lysc_node *first, SchemaNode &parent) {
  std::size_t choices = 0;
  for (const lysc_node *node = first; node != nullptr; node = node->next) {
    if (node->nodetype == LYS_CHOICE) {
      read_choice(*node, parent, ++choices);
    } else {
      add_child(*node, parent, {});
    }
  }
}

void require_distinct_tags(const SchemaNode &node, std::map<std::uint32_t, std::string> &names) {
  for (const auto &child : node.children) {
    const std::string &known = names.try_emplace(child->tag, child->name).first->second;
    if (known != child->name) {
      throw std::runtime_error(fmt::format("nodes {} and {} have the same tag", known, child->name));
    }
    require_distinct_tags(*child, names);
  }
}

template <typename T>
std::optional<Value> number_from_text(std::string_view text) {
  T number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<Value> address_from_text(std::string_view text) {
  Ipv4 address;
  if (inet_pton(AF_INET, std::string(text).c_str(), &address.word) != 1) return std::nullopt;
  return address;
}

std::optional<Value> enumeration_from_text(const SchemaNode &leaf, std::string_view text) {
  for (const auto &[name, number] : leaf.enumerators) {
    if (name == text) return Enumeration{number};
  }
  return std::nullopt;
}

}  // namespace

std::uint32_t node_tag(std::string_view name) {
  for (const auto &[fixed, tag] : kFixedTags) {
    if (fixed == name) return tag;
  }
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

const SchemaNode *SchemaNode::child(std::string_view name_with_optional_prefix) const {
  std::string_view wanted = name_with_optional_prefix;
  std::string_view prefix;
  if (const std::size_t colon = wanted.find(':'); colon != std::string_view::npos) {
    prefix = wanted.substr(0, colon);
    wanted.remove_prefix(colon + 1);
  }
  for (const auto &node : children) {
    if (node->name == wanted && (prefix.empty() || node->module == prefix)) return node.get();
  }
  return nullptr;
}

std::optional<Value> value_from_text(const SchemaNode &leaf, std::string_view text) {
  switch (leaf.type) {
    case ValueType::none:
      return std::nullopt;
    case ValueType::empty:
      return text.empty() ? std::optional<Value>(Empty{}) : std::nullopt;
    case ValueType::text:
      return std::string(text);
    case ValueType::int8:
      return number_from_text<std::int8_t>(text);
    case ValueType::int16:
      return number_from_text<std::int16_t>(text);
    case ValueType::int32:
      return number_from_text<std::int32_t>(text);
    case ValueType::int64:
      return number_from_text<std::int64_t>(text);
    case ValueType::uint8:
      return number_from_text<std::uint8_t>(text);
    case ValueType::uint16:
      return number_from_text<std::uint16_t>(text);
    case ValueType::uint32:
      return number_from_text<std::uint32_t>(text);
    case ValueType::uint64:
      return number_from_text<std::uint64_t>(text);
    case ValueType::boolean:
      if (text != "true" && text != "false") return std::nullopt;
      return text == "true";
    case ValueType::ipv4:
      return address_from_text(text);
    case ValueType::enumeration:
      return enumeration_from_text(leaf, text);
  }
  return std::nullopt;
}

Schema::Schema() {
  ly_ctx *context = nullptr;
  if (ly_ctx_new(nullptr, LY_CTX_NO_YANGLIBRARY | LY_CTX_DISABLE_SEARCHDIRS | LY_CTX_SET_PRIV_PARSED, &context) !=
      LY_SUCCESS) {
    throw std::runtime_error("the data model's context cannot be created");
  }
  context_.reset(context);
  ly_ctx_set_module_imp_clb(context, shipped_module, nullptr);
  for (const char *name : kModulesInOrder) {
    if (ly_ctx_load_module(context, name, nullptr, nullptr) == nullptr) {
      throw std::runtime_error(fmt::format("module {} does not compile: {}", name, ly_errmsg(context)));
    }
  }
  for (const char *name : kModulesInOrder) {
    const lys_module *module = ly_ctx_get_module_implemented(context, name);
    modules_.push_back({module->name, module->ns});
    if (module->compiled->data != nullptr) read_children(module->compiled->data, root_);
  }
  std::map<std::uint32_t, std::string> names;
  require_distinct_tags(root_, names);
}

void Schema::DestroyContext::operator()(ly_ctx *context) const { ly_ctx_destroy(context); }

const Module *Schema::find_module(std::string_view name) const {
  const auto found = std::find_if(modules_.begin(), modules_.end(), [&](const Module &m) { return m.name == name; });
  return found == modules_.end() ? nullptr : &*found;
}

const Module *Schema::find_namespace(std::string_view name_space) const {
  const auto found =
      std::find_if(modules_.begin(), modules_.end(), [&](const Module &m) { return m.name_space == name_space; });
  return found == modules_.end() ? nullptr : &*found;
}

const SchemaNode *Schema::find(std::string_view path) const {
  const SchemaNode *node = &root_;
  while (node != nullptr && !path.empty()) {
    if (path.front() != '/') return nullptr;
    path.remove_prefix(1);
    const std::string_view name = path.substr(0, path.find('/'));
    node = node->child(name);
    path.remove_prefix(name.size());
  }
  return node;
}

}  // namespace element
