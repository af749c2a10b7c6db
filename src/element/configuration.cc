#include "element/configuration.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "element/configuration_tree.h"
#include "element/input_error.h"
#include "element/input_text.h"
#include "element/json_text.h"
#include "element/netconf_wrapper.h"
#include "element/parse_fault.h"

namespace element {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view kBlank = " \t\r\n";

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
  std::string text;
  std::size_t begin;  ///< of what is not blank
  InputFormat format;

  std::size_t lines_above() const { return position_at(text, begin).line - 1; }
};

struct Parsed {
  LY_ERR result = LY_SUCCESS;
  Data data;
};

[[noreturn]] void throw_at(const std::string &origin, std::string_view text, std::size_t offset,
                           const std::string &fault) {
  throw InputError(fmt::format("{}:{}: {}", origin, position_at(text, offset).line, fault));
}

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

// The parsers take a zero byte for the end of the text, and are at a loss for words about bytes that are not UTF-8.
void require_text(std::string_view text, const std::string &origin) {
  const std::size_t zero = text.find('\0');
  if (zero != std::string_view::npos) throw_at(origin, text, zero, "zero byte; expected text in UTF-8");
  const std::optional<std::size_t> wrong = find_not_utf8(text);
  if (wrong) throw_at(origin, text, *wrong, "byte " + one_line(text.substr(*wrong, 1)) + "; expected text in UTF-8");
}

InputFormat format_of(std::string_view text, const std::string &origin) {
  const std::size_t begin = text.find_first_not_of(kBlank);
  if (begin == std::string_view::npos) {
    throw InputError(
        fmt::format("{}: empty; expected XML elements or a JSON object ({{}} configures nothing)", origin));
  }
  if (text[begin] == '<') return InputFormat::xml;
  if (text[begin] == '{') return InputFormat::json;
  throw_at(origin, text, begin,
           fmt::format("neither XML nor JSON begins with {}; expected '<' or '{{'", one_line(text.substr(begin, 1))));
}

void prepare_xml(std::string &text, const std::string &origin) {
  if (first_element(text) == text.size()) {
    throw InputError(
        fmt::format("{}: no element; expected at least one, without content to configure nothing", origin));
  }
  blank_netconf_wrapper(text, origin);
}

Tree parse_text(const Schema &schema, std::string text, const std::string &origin) {
  if (text.starts_with(kByteOrderMark)) text.replace(0, kByteOrderMark.size(), kByteOrderMark.size(), ' ');
  require_text(text, origin);
  const InputFormat format = format_of(text, origin);
  if (format == InputFormat::xml) prepare_xml(text, origin);
  // The parser of libyang takes a text that breaks off, text after the object, and a list from several members.
  if (format == InputFormat::json) require_json(text, origin);
  const std::size_t begin = std::min(text.find_first_not_of(kBlank), text.size());
  return to_tree({schema, origin, std::move(text), begin, format});
}

}  // namespace

Tree read_configuration(const Schema &schema, const std::filesystem::path &file) {
  return parse_text(schema, read_input(file), file.string());
}

Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin) {
  return parse_text(schema, std::string(text), origin);
}

}  // namespace element
