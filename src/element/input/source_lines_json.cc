#include <fmt/format.h>

#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "element/input/input_text.h"
#include "element/input/source_tree.h"

namespace element {
namespace {

using Json = nlohmann::json;

/// Goes through a text and tells how far it came, which the parser does not tell at an event. The parser copies it.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char *;
  using reference = const char &;

  CountingIterator(const char *place, const char **reached) : place_(place), reached_(reached) {}

  reference operator*() const { return *place_; }
  CountingIterator &operator++() {
    *reached_ = ++place_;
    return *this;
  }
  bool operator==(const CountingIterator &other) const { return place_ == other.place_; }

 private:
  const char *place_;
  const char **reached_;
};

/// Builds the tree from the parser's events. At a name, a brace or a bracket the parser has read up to its end.
class JsonLineReader : public nlohmann::json_sax<Json> {
 public:
  explicit JsonLineReader(std::string_view text) : begin_(text.data()), reached_(begin_), lines_(text) {
    const char *end = begin_ + text.size();
    Json::sax_parse(CountingIterator(begin_, &reached_), CountingIterator(end, &reached_), this);
  }

  SourceTree take_tree() { return std::move(tree_); }

  bool null() override { return add(""); }
  bool boolean(bool value) override { return add(value ? "true" : "false"); }
  bool number_integer(number_integer_t value) override { return add(fmt::to_string(value)); }
  bool number_unsigned(number_unsigned_t value) override { return add(fmt::to_string(value)); }
  /// Whole numbers as libyang takes them, "1e3" for 1000.
  bool number_float(number_float_t value, const string_t &) override { return add(fmt::format("{:.0f}", value)); }
  bool string(string_t &value) override { return add(value); }
  bool binary(binary_t &) override { return true; }

  bool key(string_t &name) override {
    name_ = name;
    tree_.open(name, line());
    return true;
  }

  bool start_object(std::size_t) override {
    if (is_in_list()) tree_.open(lists_.back(), line());
    lists_.emplace_back();
    return true;
  }

  bool end_object() override {
    lists_.pop_back();
    tree_.close();
    return true;
  }

  bool start_array(std::size_t) override {
    tree_.close();
    lists_.push_back(name_);
    return true;
  }

  bool end_array() override {
    lists_.pop_back();
    return true;
  }

  bool parse_error(std::size_t, const std::string &, const Json::exception &) override { return false; }

 private:
  bool add(std::string_view text) {
    if (is_in_list()) return true;
    tree_.add_text(text);
    tree_.close();
    return true;
  }

  bool is_in_list() const { return !lists_.empty() && !lists_.back().empty(); }

  // The last character that was read is not a line break: it ends a name or is a brace.
  std::size_t line() { return lines_.line_at(static_cast<std::size_t>(reached_ - begin_) - 1); }

  const char *begin_;
  const char *reached_;
  LineCounter lines_;
  std::string name_;
  std::vector<std::string> lists_;  ///< of each object and array that is open: the list's name, none for an object
  SourceTree tree_;
};

}  // namespace

SourceTree read_json_source(std::string_view text) { return JsonLineReader(text).take_tree(); }

}  // namespace element
