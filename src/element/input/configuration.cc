#include "element/input/configuration.h"

#include <libyang/libyang.h>

#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "element/input/configuration_tree.h"
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

/// Null if libyang refuses the text; its records say why.
std::optional<Data> parse(const Schema &schema, const OwnConfiguration &own) {
  ly_in *input = nullptr;
  if (ly_in_new_memory(own.text.c_str(), &input) != LY_SUCCESS) throw std::bad_alloc();
  const std::unique_ptr<ly_in, FreeInput> owner(input);
  lyd_node *data = nullptr;
  const LY_ERR result =
      lyd_parse_data(schema.context(), nullptr, input, own.format == InputFormat::xml ? LYD_XML : LYD_JSON,
                     LYD_PARSE_STRICT | LYD_PARSE_NO_STATE, LYD_VALIDATE_NO_STATE, &data);
  Data tree(data);
  return result == LY_SUCCESS ? std::optional(std::move(tree)) : std::nullopt;
}

ConfigurationFile read(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  OwnConfiguration own = read_own_configuration(schema, input, options);
  const bool is_empty = own.tree.size() == 1;
  ConfigurationSource source{own.format, SourceLines(std::move(own.tree)), std::move(own.passed_over)};
  // libyang takes no text without an element.
  if (is_empty) return {Tree(schema), std::move(source)};

  const CollectedMessages messages(schema);
  const std::optional<Data> data = parse(schema, own);
  if (!data) throw first_fault(schema, source.lines, input.origin());
  std::string().swap(own.text);
  return {operators_tree(schema, data->get()), std::move(source)};
}

}  // namespace

ConfigurationFile read_configuration_file(const Schema &schema, const std::filesystem::path &file,
                                          const ReadOptions &options) {
  InputPieces input(file);
  return read(schema, input, options);
}

Tree read_configuration(const Schema &schema, const std::filesystem::path &file) {
  return read_configuration_file(schema, file).tree;
}

ConfigurationFile parse_configuration_file(const Schema &schema, std::string_view text, const std::string &origin,
                                           const ReadOptions &options) {
  InputPieces input(text, origin);
  return read(schema, input, options);
}

Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin) {
  return parse_configuration_file(schema, text, origin).tree;
}

}  // namespace element
