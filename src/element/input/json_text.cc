#include "element/input/json_text.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "element/input/input_error.h"
#include "element/input/input_text.h"

namespace element {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kDeepestNesting = 100;

/// What is wrong, cut out of "[json.exception...] parse error at line 1, column 2: what is wrong". The library often
/// says what it expected, too.
std::string reason(const Json::exception &error) {
  const std::string_view text = error.what();
  const std::size_t place = text.find("column ");
  const std::size_t begin = place == std::string_view::npos ? text.find("] ") : text.find(": ", place);
  const std::string fault = one_line(text.substr(begin + 2));
  return fault.find("; expected ") == std::string::npos ? fault + "; expected well-formed JSON" : fault;
}

/// Takes the events of the parser, builds nothing.
class Checker : public nlohmann::json_sax<Json> {
 public:
  Checker(std::string_view text, const std::string &origin) : text_(text), origin_(origin) {}

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t &) override { return true; }
  bool string(string_t &) override { return true; }
  bool binary(binary_t &) override { return true; }
  bool start_object(std::size_t) override { return open(); }
  bool end_object() override { return close(); }
  bool start_array(std::size_t) override { return open(); }
  bool end_array() override { return close(); }

  bool key(string_t &name) override {
    if (open_.back().insert(name.substr(name.find(':') + 1)).second) return true;
    throw InputError(
        fmt::format("{}: member {} given twice in one object; expected each member once", origin_, one_line(name)));
  }

  bool parse_error(std::size_t bytes_read, const std::string &, const Json::exception &error) override {
    const Position position = position_at(text_, bytes_read == 0 ? 0 : bytes_read - 1);
    throw InputError(fmt::format("{}:{}:{}: {}", origin_, position.line, position.column, reason(error)));
  }

 private:
  bool open() {
    open_.emplace_back();
    if (open_.size() <= kDeepestNesting) return true;
    throw InputError(fmt::format("{}: JSON nested deeper than {} levels; expected fewer", origin_, kDeepestNesting));
  }

  bool close() {
    open_.pop_back();
    return true;
  }

  std::string_view text_;
  const std::string &origin_;
  std::vector<std::set<std::string>> open_;  ///< the names seen in each object that is open; arrays have none
};

}  // namespace

void require_json(std::string_view text, const std::string &origin) {
  Checker checker(text, origin);
  Json::sax_parse(text.data(), text.data() + text.size(), &checker);
}

}  // namespace element
