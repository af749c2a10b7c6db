#include "element/input/json_reader.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/input/nesting.h"

namespace element {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kLongestToken = std::size_t{1} << 20;

/// The input, byte by byte, with the position of the byte that was read last.
class JsonBytes {
 public:
  explicit JsonBytes(InputPieces &input) : input_(input) { fill(); }

  bool at_end() const { return next_ == end_; }
  const char &front() const { return *next_; }

  void take() {
    if (is_behind_break_) {
      ++position_.line;
      position_.column = 0;
    }
    ++position_.column;
    is_behind_break_ = *next_ == '\n';
    ++taken_;
    if (++next_ == end_) fill();
  }

  /// The line of the byte that was taken last.
  std::size_t line() const { return position_.line; }

  /// Of the byte with this number, from 1, which is that taken last, one shortly before, or the first behind the end.
  Position position_of(std::size_t number) const {
    Position position = position_;
    if (number > taken_)
      return is_behind_break_ ? Position{position.line + 1, 1} : Position{position.line, position.column + 1};
    position.column -= std::min(taken_ - number, position.column - 1);
    return position;
  }

  /// Begins a new name or value.
  void mark() { marked_ = taken_; }

 private:
  void fill() {
    if (taken_ - marked_ > kLongestToken) {
      throw input_fault({input_.origin(), position_.line},
                        fmt::format("name, value or blanks of more than {} bytes", kLongestToken), "fewer");
    }
    const InputPiece piece = input_.next();
    next_ = piece.text.data();
    end_ = next_ + piece.text.size();
    if (taken_ == 0) position_ = {piece.line, 0};
  }

  InputPieces &input_;
  const char *next_ = nullptr;
  const char *end_ = nullptr;
  Position position_{1, 0};
  bool is_behind_break_ = false;
  std::size_t taken_ = 0;
  std::size_t marked_ = 0;
};

/// Copies go through the same bytes.
class ByteIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char *;
  using reference = const char &;

  /// The end where `bytes` is null.
  explicit ByteIterator(JsonBytes *bytes) : bytes_(bytes) {}

  reference operator*() const { return bytes_->front(); }
  ByteIterator &operator++() {
    bytes_->take();
    return *this;
  }
  bool operator==(const ByteIterator &other) const { return is_end() == other.is_end(); }

 private:
  bool is_end() const { return bytes_ == nullptr || bytes_->at_end(); }

  JsonBytes *bytes_;
};

/// What is wrong, cut out of "[json.exception...] parse error at line 1, column 2: what is wrong". The library often
/// says what it expected, too.
std::string reason(const Json::exception &error) {
  const std::string_view text = error.what();
  const std::size_t place = text.find("column ");
  const std::size_t begin = place == std::string_view::npos ? text.find("] ") : text.find(": ", place);
  const std::string fault = one_line(text.substr(begin + 2));
  return fault.find("; expected ") == std::string::npos ? fault + "; expected well-formed JSON" : fault;
}

/// At a name, a brace or a bracket the parser has read up to its end; at a number one byte further.
class JsonParsing : public nlohmann::json_sax<Json> {
 public:
  JsonParsing(InputPieces &input, JsonEvents &events) : input_(input), events_(events), bytes_(input) {}

  void read() { Json::sax_parse(ByteIterator(&bytes_), ByteIterator(nullptr), this); }

  bool null() override { return tell(JsonKind::null, "null"); }
  bool boolean(bool value) override { return tell(JsonKind::boolean, value ? "true" : "false"); }
  bool number_integer(number_integer_t value) override { return tell(JsonKind::number, fmt::to_string(value)); }
  bool number_unsigned(number_unsigned_t value) override { return tell(JsonKind::number, fmt::to_string(value)); }
  bool number_float(number_float_t, const string_t &text) override { return tell(JsonKind::number, text); }
  bool string(string_t &value) override { return tell(JsonKind::text, value); }
  bool binary(binary_t &) override { return true; }

  bool key(string_t &name) override {
    bytes_.mark();
    events_.name(name, bytes_.line());
    return true;
  }
  bool start_object(std::size_t) override {
    deepen();
    events_.start_object(bytes_.line());
    return true;
  }
  bool end_object() override {
    leave();
    events_.end_object();
    return true;
  }
  bool start_array(std::size_t) override {
    deepen();
    events_.start_array(bytes_.line());
    return true;
  }
  bool end_array() override {
    leave();
    events_.end_array();
    return true;
  }

  bool parse_error(std::size_t bytes_read, const std::string &, const Json::exception &error) override {
    const Position position = bytes_.position_of(bytes_read);
    throw InputError(fmt::format("{}:{}:{}: {}", input_.origin(), position.line, position.column, reason(error)));
  }

 private:
  bool tell(JsonKind kind, std::string_view text) {
    bytes_.mark();
    events_.scalar({kind, text});
    return true;
  }

  void deepen() {
    bytes_.mark();
    if (++depth_ <= kDeepestNesting) return;
    throw input_fault({input_.origin(), bytes_.line()},
                      fmt::format("JSON nested deeper than {} levels", kDeepestNesting), "fewer");
  }

  void leave() {
    bytes_.mark();
    --depth_;
  }

  InputPieces &input_;
  JsonEvents &events_;
  JsonBytes bytes_;
  std::size_t depth_ = 0;
};

}  // namespace

std::string whole_number(std::string_view number) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  return error == std::errc{} ? fmt::format("{:.0f}", value) : std::string(number);
}

void read_json(InputPieces &input, JsonEvents &events) { JsonParsing(input, events).read(); }

}  // namespace element
