#ifndef HOST_SEAM_PATH_FORMAT_H
#define HOST_SEAM_PATH_FORMAT_H

#include <fmt/format.h>

#include <array>
#include <cstdarg>
#include <cstddef>
#include <list>
#include <string>
#include <string_view>

namespace host {

/// A path as the agent's callers give it, a printf-style format with its arguments, split into names and keys. Of the
/// conversions there are %s, %d, %i, %u and %x, the numbers also with l and ll, and %%.
///
/// An argument that stands inside braces is one key or part of one, whatever characters it holds; one that stands
/// outside is path text and read as such, braces included. Paths of any length are taken; ordinary ones cost no
/// allocation. Names and keys are left where they stand, in the format or an argument, and are valid as long as these.
class FormattedPath {
 public:
  FormattedPath() = default;
  FormattedPath(const FormattedPath &) = delete;
  FormattedPath &operator=(const FormattedPath &) = delete;

  struct Part {
    std::string_view text;
    bool is_key;          ///< of the list that the last name before it names
    bool has_braces;      ///< names: braces follow, even empty ones
    std::string *joined;  ///< its text where that did not stand in one piece
  };

  /// False when the outcome is no path: no leading slash, an empty name, a brace or quote left open, text between a
  /// closing brace and the next slash, or a conversion that is none of the above. "/" alone is a path without names.
  bool format(const char *format, std::va_list arguments);

  /// A key, or a part of one, stands in quotes.
  bool has_quotes() const { return has_quotes_; }

  const Part *begin() const { return parts_.begin(); }
  const Part *end() const { return parts_.end(); }

 private:
  enum class State { start, name, keys, quoted, escaped, closed, broken };

  struct Arguments {
    std::va_list list;
  };

  const char *convert(const char *conversion, Arguments &arguments);
  void number(char conversion, int longs, Arguments &arguments);
  void argument(std::string_view text);
  void path_text(std::string_view text);
  std::size_t take(std::string_view text);
  std::size_t take_slash(std::string_view text);
  std::size_t take_name(std::string_view text);
  std::size_t take_keys(std::string_view text);
  std::size_t take_quoted(std::string_view text);
  std::size_t end_name(char terminator);
  void open_part(bool is_key);
  void open_key();
  std::string_view keep(std::string_view digits);
  void append(std::string_view text);
  bool is_complete() const;

  State state_ = State::start;
  bool key_is_open_ = false;
  bool has_quotes_ = false;
  fmt::basic_memory_buffer<Part, 32> parts_;
  std::array<char, 128> digits_;  ///< of the numbers among the arguments
  std::size_t digits_used_ = 0;
  std::list<std::string> own_texts_;  ///< joined ones, and digits for which there was no room
};

}  // namespace host

#endif
