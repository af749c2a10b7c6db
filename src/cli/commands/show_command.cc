#include "cli/commands/show_command.h"

#include <functional>
#include <string>
#include <utility>

#include "cli/command_line/errors.h"
#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "report/json/shown_json.h"
#include "report/text/shown_text.h"
#include "report/value_text.h"

namespace cli {
namespace {

using element::Node;
using element::NodeKind;
using element::Path;

/// Takes a leaf with its value, or an entry that holds none.
using LineWriter = std::function<void(const std::string &path, const std::string &value)>;

class Printer {
 public:
  explicit Printer(LineWriter write) : write_(std::move(write)) {}

  /// Prints a node that stands at `above`; a list as its entries. False where there was nothing to print.
  bool print(const Node &node, Path &above) {
    if (node.schema->kind != NodeKind::list || node.is_entry()) return print_node(node, above);
    bool printed = false;
    for (const Node &entry : node.children) printed = print_node(entry, above) || printed;
    return printed;
  }

  bool print_below(const Node &node, Path &path) {
    bool printed = false;
    for (const Node &below : node.children) printed = print(below, path) || printed;
    return printed;
  }

 private:
  bool print_node(const Node &node, Path &above) {
    above.push_back({node.schema, node.keys});
    bool printed = print_below(node, above);
    if (!printed && (node.is_entry() || node.schema->presence || node.schema->kind == NodeKind::leaf)) {
      write_(to_text(above), report::value_text(node));
      printed = true;
    }
    above.pop_back();
    return printed;
  }

  LineWriter write_;
};

bool print_derived(Printer &printer, const element::Tree &tree) {
  bool printed = false;
  for (const Node &top : tree.root().children) {
    Path above;
    if (top.schema->derived) printed = printer.print(top, above) || printed;
  }
  return printed;
}

bool print_at(Printer &printer, const element::Tree &tree, const std::string &text) {
  const Node *node = tree.find(text);
  if (node == nullptr) return false;
  Path path = element::parse_path(tree.schema(), text);
  if (path.empty()) return printer.print_below(*node, path);
  path.pop_back();
  return printer.print(*node, path);
}

}  // namespace

ExitStatus show(const ShowArguments &arguments, const Environment &environment) {
  const CommitInput input(find_input_files(arguments.input), read_options(arguments.input));
  tell_foreign_nodes(environment.err, arguments.input, input.sources());
  const element::Transaction &transaction = input.transaction();
  const element::Tree &tree = arguments.running ? transaction.running : transaction.candidate;

  report::ShownNodes nodes;
  Printer printer([&nodes](const std::string &path, const std::string &value) { nodes.push_back({path, value}); });
  try {
    const bool printed =
        arguments.path.empty() ? print_derived(printer, tree) : print_at(printer, tree, arguments.path);
    if (!printed) environment.err << "no such node\n";
    const auto write = arguments.format == TableFormat::json ? report::write_shown_json : report::write_shown_text;
    write(environment.out, nodes);
  } catch (const element::PathError &error) {
    throw UsageError(error.what());
  }
  return ExitStatus::accepted;
}

}  // namespace cli
