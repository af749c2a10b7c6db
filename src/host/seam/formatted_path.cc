#include "host/seam/formatted_path.h"

#include <array>
#include <charconv>
#include <cstring>

namespace host {

bool FormattedPath::format(const char *format, std::va_list arguments) {
  Arguments remaining;
  va_copy(remaining.list, arguments);
  while (*format != '\0' && state_ != State::broken) {
    const char *conversion = std::strchr(format, '%');
    const std::size_t plain =
        conversion == nullptr ? std::strlen(format) : static_cast<std::size_t>(conversion - format);
    path_text({format, plain});
    format += plain;
    if (conversion != nullptr) format = convert(conversion + 1, remaining);
  }
  va_end(remaining.list);
  return is_complete();
}

// NOLINTBEGIN(clang-analyzer-valist.Uninitialized): the analyzer overlooks the va_copy above

// Answers where the format goes on. After a conversion that is not known the arguments' types are not known either.
const char *FormattedPath::convert(const char *conversion, Arguments &arguments) {
  int longs = 0;
  for (; *conversion == 'l'; ++conversion) ++longs;
  switch (*conversion) {
    case 's': {
      const char *text = va_arg(arguments.list, const char *);
      argument(text == nullptr ? "(null)" : text);
      return conversion + 1;
    }
    case 'd':
    case 'i':
    case 'u':
    case 'x':
      number(*conversion, longs, arguments);
      return conversion + 1;
    case '%':
      path_text("%");
      return conversion + 1;
    default:
      state_ = State::broken;
      return conversion;
  }
}

void FormattedPath::number(char conversion, int longs, Arguments &arguments) {
  std::array<char, 24> digits;
  std::to_chars_result result{};
  if (conversion == 'd' || conversion == 'i') {
    const long long value = longs > 1    ? va_arg(arguments.list, long long)
                            : longs == 1 ? va_arg(arguments.list, long)
                                         : va_arg(arguments.list, int);
    result = std::to_chars(digits.begin(), digits.end(), value);
  } else {
    const unsigned long long value = longs > 1    ? va_arg(arguments.list, unsigned long long)
                                     : longs == 1 ? va_arg(arguments.list, unsigned long)
                                                  : va_arg(arguments.list, unsigned int);
    result = std::to_chars(digits.begin(), digits.end(), value, conversion == 'x' ? 16 : 10);
  }
  argument(keep({digits.data(), static_cast<std::size_t>(result.ptr - digits.data())}));
}

// NOLINTEND(clang-analyzer-valist.Uninitialized)

void FormattedPath::argument(std::string_view text) {
  switch (state_) {
    case State::keys:
      open_key();
      append(text);
      break;
    case State::escaped:
      state_ = State::quoted;
      append(text);
      break;
    case State::quoted:
      append(text);
      break;
    default:
      path_text(text);
  }
}

void FormattedPath::path_text(std::string_view text) {
  while (!text.empty() && state_ != State::broken) text.remove_prefix(take(text));
}

// Reads on in the present state; answers how much it took.
std::size_t FormattedPath::take(std::string_view text) {
  switch (state_) {
    case State::start:
    case State::closed:
      return take_slash(text);
    case State::name:
      return take_name(text);
    case State::keys:
      return take_keys(text);
    case State::quoted:
      return take_quoted(text);
    case State::escaped:
      state_ = State::quoted;
      append(text.substr(0, 1));
      return 1;
    case State::broken:
      break;
  }
  return text.size();
}

std::size_t FormattedPath::take_slash(std::string_view text) {
  if (text.front() != '/') {
    state_ = State::broken;
    return text.size();
  }
  state_ = State::name;
  open_part(false);
  return 1;
}

std::size_t FormattedPath::take_name(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && text[length] != '/' && text[length] != '{') ++length;
  append(text.substr(0, length));
  return length < text.size() ? length + end_name(text[length]) : length;
}

// A slash is left to begin the next name with.
std::size_t FormattedPath::end_name(char terminator) {
  Part &name = parts_[parts_.size() - 1];
  if (name.text.empty()) {
    state_ = State::broken;
    return 1;
  }
  if (terminator == '/') {
    state_ = State::closed;
    return 0;
  }
  name.has_braces = true;
  key_is_open_ = false;
  state_ = State::keys;
  return 1;
}

std::size_t FormattedPath::take_keys(std::string_view text) {
  switch (text.front()) {
    case ' ':
      key_is_open_ = false;
      return 1;
    case '}':
      state_ = State::closed;
      return 1;
    case '"':
      open_key();
      state_ = State::quoted;
      has_quotes_ = true;
      return 1;
    default:
      break;
  }
  std::size_t length = 1;
  while (length < text.size() && text[length] != ' ' && text[length] != '}' && text[length] != '"') ++length;
  open_key();
  append(text.substr(0, length));
  return length;
}

std::size_t FormattedPath::take_quoted(std::string_view text) {
  if (text.front() == '"' || text.front() == '\\') {
    state_ = text.front() == '"' ? State::keys : State::escaped;
    return 1;
  }
  std::size_t length = 1;
  while (length < text.size() && text[length] != '"' && text[length] != '\\') ++length;
  append(text.substr(0, length));
  return length;
}

void FormattedPath::open_part(bool is_key) { parts_.push_back({"", is_key, false, nullptr}); }

void FormattedPath::open_key() {
  if (key_is_open_) return;
  key_is_open_ = true;
  open_part(true);
}

std::string_view FormattedPath::keep(std::string_view digits) {
  if (digits.size() > digits_.size() - digits_used_) return own_texts_.emplace_back(digits);
  char *place = digits_.data() + digits_used_;
  digits_used_ += digits.copy(place, digits.size());
  return {place, digits.size()};
}

void FormattedPath::append(std::string_view text) {
  Part &part = parts_[parts_.size() - 1];
  if (part.text.empty()) {
    part.text = text;
    return;
  }
  if (part.text.data() + part.text.size() == text.data()) {
    part.text = {part.text.data(), part.text.size() + text.size()};
    return;
  }
  if (part.joined == nullptr) part.joined = &own_texts_.emplace_back(part.text);
  part.text = part.joined->append(text);
}

bool FormattedPath::is_complete() const {
  if (state_ == State::closed) return true;
  if (state_ != State::name) return false;
  const bool has_name = !parts_[parts_.size() - 1].text.empty();
  const bool is_root = parts_.size() == 1;
  return has_name || is_root;
}

}  // namespace host
