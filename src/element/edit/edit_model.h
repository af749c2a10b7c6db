#ifndef ELEMENT_EDIT_EDIT_MODEL_H
#define ELEMENT_EDIT_EDIT_MODEL_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "element/edit/edit.h"
#include "element/edit/edit_fault.h"
#include "element/input/configuration_format.h"
#include "element/input/foreign_nodes.h"
#include "element/input/own_configuration.h"

namespace element {

/// A node's name in an edit's file.
struct EditName {
  std::string_view module;  ///< by its name in JSON, by its namespace in XML
  std::string_view name;
  std::size_t line = 0;
};

bool is_deletion(EditOperation operation);
bool is_key(const SchemaNode &node);

/// What the readers of all formats ask of the data model, and how they refuse. Keeps the path to the node that is read,
/// which errors name. Every error is an InputError "FILE:LINE: PATH: what is wrong; expected ...".
class EditModel {
 public:
  /// Nodes of other modules are counted in `passed_over`. All that is given must outlive the object.
  EditModel(const Schema &schema, InputFormat format, EditOrigin origin, const ReadOptions &options,
            ForeignNodes &passed_over);

  const Schema &schema() const { return schema_; }
  const EditOrigin &origin() const { return origin_; }

  /// What follows belongs to an edit of a YANG patch.
  void set_edit_id(std::string id) { origin_.edit_id = std::move(id); }

  Path &path() { return path_; }

  /// The child of this name. Null for one of another module; throws where the options refuse these. Throws for a name
  /// that the data model does not have there, and for a node that an operator does not write.
  const SchemaNode *child(const SchemaNode &parent, const EditName &name) const;

  /// The child of this name in a module of the data model. `module` is null where the file gives none. Throws as
  /// child() does, with the names that were expected as the format writes them.
  const SchemaNode &own_child(const SchemaNode &parent, const Module *module, const EditName &name,
                              InputFormat format) const;

  /// Counts a node that is passed over.
  void count_foreign(std::string_view module, std::size_t line);

  /// The leaf's value. Throws where the data model does not allow it.
  Value value(const SchemaNode &leaf, std::string_view text, std::size_t line) const;

  /// Throws for the node that is read.
  [[noreturn]] void fail(std::size_t line, const std::string &what, const std::string &expected) const;

 private:
  const Schema &schema_;
  InputFormat format_;
  EditOrigin origin_;
  const ReadOptions &options_;
  ForeignNodes &passed_over_;
  Path path_;
};

}  // namespace element

#endif
