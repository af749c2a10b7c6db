#include "element/input/parse_fault.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <charconv>
#include <new>
#include <vector>

#include "element/input/expectation.h"
#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/input/source_tree.h"
#include "element/input/yang_path.h"

namespace element {
namespace {

constexpr std::string_view kLineMark = "ine number ";
constexpr std::string_view kDataMark = "Data location \"";
constexpr std::string_view kSchemaMark = "Schema location \"";
constexpr std::string_view kDuplicate = "Duplicate instance";

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

/// What libyang says, and where.
struct ParserRecord {
  std::string_view message;
  std::size_t line = 0;  ///< 0: not known
  Path path;
  bool is_rule = false;
};

ParserRecord read_record(const Schema &schema, const ly_err_item &item) {
  const std::string_view place = item.path == nullptr ? "" : item.path;
  const std::string_view schema_path = quoted(after(place, kSchemaMark));
  ParserRecord record;
  record.message = item.msg;
  if (record.message.ends_with('.')) record.message.remove_suffix(1);
  record.line = number(after(place, kLineMark));
  record.path = path_of_parser(schema, schema_path.empty() ? quoted(after(place, kDataMark)) : schema_path);
  record.is_rule = item.apptag != nullptr && std::string_view(item.apptag) == "must-violation";
  return record;
}

/// The parser's line is that of the node which it reads; it may complain of one above.
InputPlace place_of(const ParserRecord &record, const SourceTree &tree, const std::string &file) {
  const std::vector<SourceTree::NodeId> way = record.line < 2 || record.line > tree.size()
                                                  ? std::vector<SourceTree::NodeId>()
                                                  : tree.way_to(static_cast<SourceTree::NodeId>(record.line - 1));
  if (record.path.empty() || way.size() < record.path.size()) return {file, 0, to_text(record.path)};
  const SourceTree::NodeId node = way[record.path.size() - 1];
  return {file, tree.line(node), path_text(tree, node)};
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

InputError first_fault(const Schema &schema, const SourceLines &lines, const std::string &origin) {
  const ly_err_item *item = first_error(schema.context());
  if (item == nullptr || item->no == LY_EMEM) throw std::bad_alloc();
  const ParserRecord record = read_record(schema, *item);
  const InputPlace place = record.line == 0
                               ? InputPlace{origin, lines.line_of(record.path).value_or(0), to_text(record.path)}
                               : place_of(record, lines.tree(), origin);
  if (record.message.starts_with(kDuplicate)) {
    const std::vector<std::size_t> given = lines.lines_of(record.path);
    if (given.size() > 1) {
      return input_fault({origin, given[1], to_text(record.path)},
                         fmt::format("given twice, first on line {}", given[0]), "each entry once");
    }
  }
  const SchemaNode *node = record.path.empty() ? nullptr : record.path.back().schema;
  return input_fault(place, one_line(record.message), expected_instead(schema, node, {record.message, record.is_rule}));
}

}  // namespace element
