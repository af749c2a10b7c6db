#include "element/input/parse_fault.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <charconv>
#include <new>

#include "element/input/expectation.h"
#include "element/input/input_text.h"

namespace element {
namespace {

constexpr std::string_view kLineMark = "ine number ";
constexpr std::string_view kDataMark = "Data location \"";
constexpr std::string_view kSchemaMark = "Schema location \"";

/// What follows `mark` in a record's place ("Data location "/a/b", line number 3."), or empty.
std::string_view after(std::string_view place, std::string_view mark) {
  const std::size_t found = place.rfind(mark);
  return found == std::string_view::npos ? "" : place.substr(found + mark.size());
}

/// A quoted path, which may hold quotes itself, without what follows its closing quote.
std::string_view quoted(std::string_view text) {
  const std::size_t with_line = text.rfind("\", line number ");
  return text.substr(0, with_line == std::string_view::npos ? text.rfind('"') : with_line);
}

std::size_t number(std::string_view digits) {
  std::size_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

const ly_err_item *first_error(const ly_ctx *context) {
  for (const ly_err_item *item = ly_err_first(context); item != nullptr; item = item->next) {
    if (item->level == LY_LLERR) return item;
  }
  return nullptr;
}

ParseFault described(const Schema &schema, InputFormat format, const ly_err_item &record) {
  const std::string_view place = record.path == nullptr ? "" : record.path;
  const std::string_view schema_path = quoted(after(place, kSchemaMark));
  std::string_view message = record.msg;
  if (message.ends_with('.')) message.remove_suffix(1);

  ParseFault fault;
  fault.line = number(after(place, kLineMark));
  fault.path = schema_path.empty() ? quoted(after(place, kDataMark)) : schema_path;
  fault.message = message;
  if (is_about_missing_node(message)) fault.missing_node = schema_path;
  const bool is_rule = record.apptag != nullptr && std::string_view(record.apptag) == "must-violation";
  fault.expected = expected_instead(schema, format, {record.vecode, message, fault.path, is_rule});
  return fault;
}

}  // namespace

CollectedMessages::CollectedMessages(const Schema &schema) : context_(schema.context()), options_(LY_LOSTORE) {
  ly_err_clean(context_, nullptr);
  ly_temp_log_options(&options_);
}

CollectedMessages::~CollectedMessages() {
  ly_temp_log_options(nullptr);
  ly_err_clean(context_, nullptr);
}

ParseFault first_fault(const Schema &schema, InputFormat format, std::size_t lines_above) {
  const ly_err_item *record = first_error(schema.context());
  // A character that may not stand in a name stops the parser without a word.
  if (record == nullptr) return {0, "", "character that may not stand where it does", well_formed(format), ""};
  if (record->no == LY_EMEM) throw std::bad_alloc();
  ParseFault fault = described(schema, format, *record);
  if (fault.line != 0) fault.line += lines_above;
  return fault;
}

InputError to_input_error(const std::string &origin, const ParseFault &fault) {
  const std::string line = fault.line == 0 ? "" : fmt::format(":{}", fault.line);
  const std::string path = fault.path.empty() ? "" : one_line(fault.path) + ": ";
  return InputError(
      fmt::format("{}{}: {}{}; expected {}", origin, line, path, one_line(fault.message), fault.expected));
}

}  // namespace element
