#include "host/seam/object_values.h"

#include <algorithm>

#include "host/seam/agent_values.h"

namespace host {

namespace {

class ObjectWriter {
 public:
  ObjectWriter(confd_value_t *values, int room) : values_(values), room_(room) {}

  void keys(const element::SchemaNode &list, const element::Node *entry) {
    const std::size_t given = entry == nullptr ? 0 : entry->keys.size();
    for (std::size_t i = 0; i < std::max(list.key_count, given); ++i) {
      put_leaf(key_leaf(list, i), i < given ? &entry->keys[i] : nullptr);
    }
  }

  // The object's children and the schema's stand in the same order.
  void children(const element::SchemaNode &schema, const element::Node *object) {
    static const element::Nodes none;
    const element::Nodes &nodes = object == nullptr ? none : object->children;
    auto node = nodes.begin();
    for (std::size_t i = schema.key_count; i < schema.children.size(); ++i) {
      const element::SchemaNode &child = *schema.children[i];
      const bool is_set = node != nodes.end() && node->schema == &child;
      put(child, is_set ? &*node : nullptr);
      if (is_set) ++node;
    }
  }

  int count() const { return count_; }

 private:
  void put(const element::SchemaNode &schema, const element::Node *node) {
    switch (schema.kind) {
      case element::NodeKind::leaf:
        put_leaf(schema, node == nullptr ? nullptr : &node->value);
        return;
      case element::NodeKind::list:
        put_value(no_value());
        return;
      case element::NodeKind::container:
        put_value(schema.presence && node == nullptr ? no_value() : tag_of(schema));
        children(schema, node);
    }
  }

  // Only what is written is handed out.
  void put_leaf(const element::SchemaNode &leaf, const element::Value *value) {
    const bool is_written = count_ < room_;
    put_value(is_written && value != nullptr ? owned_value(*value, leaf) : no_value());
  }

  void put_value(const confd_value_t &value) {
    if (count_ < room_) values_[count_] = value;
    ++count_;
  }

  confd_value_t *values_;
  int room_;
  int count_ = 0;
};

}  // namespace

int write_object(const element::SchemaNode &schema, const element::Node *object, confd_value_t *values, int room) {
  ObjectWriter writer(values, room);
  if (schema.kind == element::NodeKind::list) writer.keys(schema, object);
  writer.children(schema, object);
  return writer.count();
}

}  // namespace host
