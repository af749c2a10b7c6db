#include "maintenance/recording/asked_path.h"

namespace recording {

namespace {

std::string text_of(const Item &item) {
  if (const auto *text = std::get_if<std::string>(&item)) return *text;
  if (const auto *number = std::get_if<std::int64_t>(&item)) return std::to_string(*number);
  if (const auto *number = std::get_if<std::uint64_t>(&item)) return std::to_string(*number);
  return "";
}

class PathReader {
 public:
  /// A part of a path that holds slashes, braces and blanks.
  void path_text(const std::string &text) {
    for (const char c : text) path_character(c);
  }

  /// An argument: within braces it is a key or a part of one, whatever it holds.
  void argument(const std::string &text) {
    if (!in_braces_) return path_text(text);
    open_key();
    steps_.back().keys.back() += text;
  }

  std::vector<PathStep> take() { return std::move(steps_); }

 private:
  void path_character(char c) {
    if (in_braces_) return key_character(c);
    if (c == '/') {
      steps_.emplace_back();
    } else if (steps_.empty()) {
      return;
    } else if (c == '{') {
      in_braces_ = true;
      key_is_open_ = false;
    } else if (c == ':') {
      steps_.back().name.clear();
    } else {
      steps_.back().name += c;
    }
  }

  void key_character(char c) {
    if (c == '}') {
      in_braces_ = false;
    } else if (c == ' ') {
      key_is_open_ = false;
    } else {
      open_key();
      steps_.back().keys.back() += c;
    }
  }

  void open_key() {
    if (!key_is_open_) steps_.back().keys.emplace_back();
    key_is_open_ = true;
  }

  std::vector<PathStep> steps_;
  bool in_braces_ = false;
  bool key_is_open_ = false;
};

}  // namespace

std::vector<PathStep> asked_path(const Format &format) {
  PathReader reader;
  auto argument = format.arguments.begin();
  for (std::size_t i = 0; i < format.text.size(); ++i) {
    const bool is_conversion = format.text[i] == '%' && i + 1 < format.text.size();
    if (is_conversion) ++i;
    if (!is_conversion || format.text[i] == '%') {
      reader.path_text(std::string(1, format.text[i]));
    } else if (argument != format.arguments.end()) {
      reader.argument(text_of(*argument++));
    }
  }
  return reader.take();
}

std::string node_path(const std::vector<PathStep> &steps) {
  std::string path;
  for (const PathStep &step : steps) path += "/" + step.name;
  return path;
}

}  // namespace recording
