#include "element/edit/edited_configuration.h"

#include <fmt/format.h>

#include <utility>

#include "element/edit/apply_edit.h"
#include "element/edit/edit_fault.h"
#include "element/input/parse_fault.h"
#include "element/input/source_tree.h"
#include "element/output/data_tree.h"
#include "element/output/value_text.h"

namespace element {
namespace {

void add_lines(const EditNode &node, SourceTree &tree) {
  // What goes has no line in the result.
  if (node.operation == EditOperation::delete_existing || node.operation == EditOperation::remove) return;
  tree.open(*node.schema, node.line);
  for (std::size_t i = 0; i < node.keys.size(); ++i) {
    const SchemaNode &key = *node.schema->children[i];
    tree.open(key, node.line);
    tree.set_text(file_text(key, node.keys[i]));
    tree.close();
  }
  for (const EditNode &child : node.children) add_lines(child, tree);
  tree.close();
}

/// The data model's demands on the whole result. That of a mandatory leaf is looked at here, for libyang does not say
/// in which entry it is missing.
class ResultCheck {
 public:
  ResultCheck(const Tree &result, const SourceLines &lines, const std::string &origin)
      : result_(result), lines_(lines), origin_(origin) {}

  void run() {
    require_mandatory(result_.root());
    const Schema &schema = result_.schema();
    const CollectedMessages messages(schema);
    lyd_node *data = data_tree(result_).release();
    const LY_ERR status = lyd_validate_all(&data, schema.context(), LYD_VALIDATE_NO_STATE, nullptr);
    const DataTree owner(data);
    if (status != LY_SUCCESS) throw first_fault(schema, lines_, origin_);
  }

 private:
  void require_mandatory(const Node &node) {
    for (const Node &child : node.children) {
      const bool is_list = child.schema->kind == NodeKind::list && !child.is_entry();
      if (is_list) require_mandatory(child);
      if (is_list || child.schema->kind == NodeKind::leaf) continue;
      path_.push_back({child.schema, child.keys});
      require_leafs(child);
      require_mandatory(child);
      path_.pop_back();
    }
  }

  void require_leafs(const Node &node) const {
    for (const auto &child : node.schema->children) {
      const bool is_needed = child->kind == NodeKind::leaf && child->mandatory && child->choice == 0;
      const bool is_key = child->position < node.schema->key_count;
      if (is_needed && !is_key && node.find(*child) == nullptr) fail(*child);
    }
  }

  [[noreturn]] void fail(const SchemaNode &leaf) const {
    throw edit_fault({origin_}, lines_.line_of(path_).value_or(0), path_, fmt::format("\"{}\" is missing", leaf.name),
                     "it to be set, because it is mandatory");
  }

  const Tree &result_;
  const SourceLines &lines_;
  const std::string &origin_;
  Path path_;
};

}  // namespace

SourceLines lines_of(const std::vector<Edit> &edits) {
  SourceTree tree;
  for (const Edit &edit : edits) {
    for (const EditNode &node : edit.nodes) add_lines(node, tree);
  }
  return SourceLines(std::move(tree));
}

void require_allowed(const Tree &result, const SourceLines &lines, const std::string &origin) {
  ResultCheck(result, lines, origin).run();
}

ConfigurationFile edited_configuration(const ConfigurationFile &before, const std::filesystem::path &file_before,
                                       const std::vector<std::filesystem::path> &files, const ReadOptions &options) {
  ConfigurationFile result{before.tree, {before.source.format, before.source.lines, {}, before.source.further}};
  const std::filesystem::path *last = &file_before;
  for (const std::filesystem::path &file : files) {
    const EditFile edits = read_edits(before.tree.schema(), file, options);
    for (const Edit &edit : edits.edits) result.tree = edited(result.tree, edit);
    result.source.further.insert(result.source.further.begin(), {*last, result.source.lines});
    result.source.lines = lines_of(edits.edits);
    std::vector<ForeignModule> &modules = result.source.passed_over.modules;
    modules.insert(modules.end(), edits.passed_over.modules.begin(), edits.passed_over.modules.end());
    last = &file;
  }
  require_allowed(result.tree, result.source.lines, last->string());
  return result;
}

}  // namespace element
