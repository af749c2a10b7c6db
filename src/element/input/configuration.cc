#include "element/input/configuration.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "element/input/configuration_text.h"
#include "element/input/configuration_tree.h"
#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/parse_fault.h"

namespace element {
namespace {

struct FreeData {
  void operator()(lyd_node *tree) const { lyd_free_all(tree); }
};
struct FreeInput {
  void operator()(ly_in *input) const { ly_in_free(input, 0); }
};
using Data = std::unique_ptr<lyd_node, FreeData>;

/// A configuration file on its way to a tree.
struct Source {
  const Schema &schema;
  const std::string &origin;
  const std::string &text;
  std::size_t begin;  ///< of what is not blank
  InputFormat format;

  std::size_t lines_above() const { return position_at(text, begin).line - 1; }
};

struct Parsed {
  LY_ERR result = LY_SUCCESS;
  Data data;
};

// The parser begins where the blanks end, for it counts the lines before a JSON object twice.
Parsed parse(const Source &source, std::uint32_t options, std::uint32_t validation) {
  ly_in *input = nullptr;
  if (ly_in_new_memory(source.text.c_str() + source.begin, &input) != LY_SUCCESS) throw std::bad_alloc();
  const std::unique_ptr<ly_in, FreeInput> owner(input);
  lyd_node *data = nullptr;
  Parsed parsed;
  parsed.result =
      lyd_parse_data(source.schema.context(), nullptr, input, source.format == InputFormat::xml ? LYD_XML : LYD_JSON,
                     LYD_PARSE_STRICT | LYD_PARSE_NO_STATE | options, validation, &data);
  parsed.data.reset(data);
  return parsed;
}

/// libyang names a mandatory node that is missing without saying in which entry: the one is looked up that lacks it.
std::string missing_path(const Source &source, const std::string &schema_path) {
  const lysc_node *wanted = lys_find_path(source.schema.context(), nullptr, schema_path.c_str(), 0);
  const Parsed unchecked = parse(source, LYD_PARSE_ONLY, 0);
  const std::string parent = wanted == nullptr ? "" : path_of_instance_without(unchecked.data.get(), *wanted);
  return parent.empty() ? schema_path : fmt::format("{}/{}", parent, wanted->name);
}

[[noreturn]] void throw_fault(const Source &source) {
  ParseFault fault = first_fault(source.schema, source.format, source.lines_above());
  if (!fault.missing_node.empty()) fault.path = missing_path(source, fault.missing_node);
  throw to_input_error(source.origin, fault);
}

Tree to_tree(const Source &source) {
  const CollectedMessages messages(source.schema);
  const Parsed parsed = parse(source, 0, LYD_VALIDATE_NO_STATE);
  if (parsed.result != LY_SUCCESS) throw_fault(source);
  return operators_tree(source.schema, parsed.data.get(), source.origin);
}

ConfigurationWithText parse_text(const Schema &schema, std::string text, const std::string &origin) {
  ConfigurationText prepared = prepare_configuration(std::move(text), origin);
  const std::size_t begin = std::min(prepared.text.find_first_not_of(kBlank), prepared.text.size());
  Tree tree = to_tree({schema, origin, prepared.text, begin, prepared.format});
  return {std::move(tree), std::move(prepared)};
}

}  // namespace

Tree read_configuration(const Schema &schema, const std::filesystem::path &file) {
  return read_configuration_with_text(schema, file).tree;
}

ConfigurationWithText read_configuration_with_text(const Schema &schema, const std::filesystem::path &file) {
  return parse_text(schema, read_input(file), file.string());
}

Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin) {
  return parse_text(schema, std::string(text), origin).tree;
}

}  // namespace element
