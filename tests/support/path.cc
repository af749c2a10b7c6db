#include "tests/support/path.h"

#include <algorithm>
#include <cstddef>

namespace scripted {

namespace {

std::string quoted_key(std::string_view key) {
  if (!key.empty() && key.find_first_of(" {}\"\\") == std::string_view::npos) return std::string(key);
  std::string out = "\"";
  for (const char c : key) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + '"';
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  Path path() {
    if (text_.empty() || text_[0] != '/') fail("must begin with a slash");
    Path path;
    while (at_ < text_.size()) {
      if (text_[at_] != '/') fail("a slash is missing");
      ++at_;
      path.push_back(step());
    }
    return path;
  }

 private:
  Step step() {
    const std::size_t end = std::min(text_.find_first_of("/{", at_), text_.size());
    std::string_view name = text_.substr(at_, end - at_);
    name.remove_prefix(name.find(':') + 1);
    if (name.empty()) fail("a name is missing");
    at_ = end;
    Step step{std::string(name), {}};
    if (at_ < text_.size() && text_[at_] == '{') step.keys = keys();
    return step;
  }

  std::vector<std::string> keys() {
    std::vector<std::string> keys;
    ++at_;
    while (skip_blanks(), current() != '}') keys.push_back(key());
    ++at_;
    return keys;
  }

  std::string key() {
    std::string key;
    bool quoted = false;
    for (; quoted || (current() != ' ' && current() != '}'); ++at_) {
      if (current() == '"') {
        quoted = !quoted;
        continue;
      }
      if (quoted && current() == '\\') ++at_;
      key += current();
    }
    return key;
  }

  void skip_blanks() {
    while (current() == ' ') ++at_;
  }

  char current() const {
    if (at_ >= text_.size()) fail("a brace or quote is not closed");
    return text_[at_];
  }

  [[noreturn]] void fail(const char *what) const { throw PathError("path " + std::string(text_) + ": " + what); }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

Path parse_path(std::string_view text) { return Reader(text).path(); }

std::string format_path(const char *format, va_list arguments) {
  std::string out;
  bool in_braces = false;
  for (const char *at = format; *at != '\0'; ++at) {
    if (*at == '{') in_braces = true;
    if (*at == '}') in_braces = false;
    if (*at != '%') {
      out += *at;
      continue;
    }
    switch (*++at) {
      case 's': {
        const char *argument = va_arg(arguments, const char *);
        out += in_braces ? quoted_key(argument) : argument;
        break;
      }
      case 'd':
        out += std::to_string(va_arg(arguments, int));
        break;
      case 'u':
        out += std::to_string(va_arg(arguments, unsigned));
        break;
      case '%':
        out += '%';
        break;
      default:
        throw PathError("path format " + std::string(format) + ": only %s, %d, %u and %% are substituted");
    }
  }
  return out;
}

std::string to_text(const Path &path) {
  std::string out;
  for (const Step &step : path) {
    out += '/' + step.name;
    if (step.keys.empty()) continue;
    char before = '{';
    for (const std::string &key : step.keys) {
      out += before + quoted_key(key);
      before = ' ';
    }
    out += '}';
  }
  return out;
}

std::string node_text(const Path &path) {
  std::string out;
  for (const Step &step : path) out += '/' + step.name;
  return out;
}

bool is_at_or_below(const Path &path, const Path &ancestor) {
  if (path.size() < ancestor.size()) return false;
  for (std::size_t i = 0; i < ancestor.size(); ++i) {
    const bool covers = i + 1 == ancestor.size() && ancestor[i].keys.empty();
    if (path[i].name != ancestor[i].name) return false;
    if (!covers && path[i].keys != ancestor[i].keys) return false;
  }
  return true;
}

}  // namespace scripted
