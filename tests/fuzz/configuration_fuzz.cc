#include <string>
#include <string_view>

#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "fuzz_target.h"

namespace {

using element::Node;
using element::NodeKind;

void require_order(const Node &node) {
  const bool is_list = node.schema->kind == NodeKind::list && !node.is_entry();
  for (std::size_t i = 1; i < node.children.size(); ++i) {
    const Node &before = node.children[i - 1];
    const Node &after = node.children[i];
    require(is_list ? compare_keys(before.keys, after.keys) < 0 : before.schema->position < after.schema->position,
            "siblings stand in order and once");
  }
}

void require_operators_nodes(const Node &node) {
  require(!node.schema->derived, "a configuration holds no derived node");
  require_order(node);
  for (const Node &below : node.children) require_operators_nodes(below);
}

}  // namespace

/// Any text is a configuration, then in order, or is refused in one line that says what was expected.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const element::Schema schema;
  try {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    require_operators_nodes(parse_configuration(schema, text, "input").root());
  } catch (const element::InputError &error) {
    const std::string_view message = error.what();
    require(message.starts_with("input:"), "an error names its file");
    require(message.find("; expected ") != std::string_view::npos, "an error says what was expected");
    require(message.find('\n') == std::string_view::npos, "an error stands on one line");
  }
  return 0;
}
