#ifndef MAINTENANCE_HOOKS_FORMAT_ARGUMENTS_H
#define MAINTENANCE_HOOKS_FORMAT_ARGUMENTS_H

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "maintenance/recording/writer.h"

namespace hooks {

/// The arguments of a printf-style call as its format tells them: to be written down with their types, and to be passed
/// on to another function that takes the same.
///
/// They are passed on as words and doubles. In the calling conventions of x86-64 and of 64-bit ARM a number of 32 bits,
/// a pointer and a word are fetched from the same places, and doubles from others.
class FormatArguments {
 public:
  /// Fetches from `list` what `format` names.
  FormatArguments(const char *format, std::va_list list);

  /// False where a conversion is none of printf's, or there are more arguments than are kept.
  bool is_known() const { return is_known_; }

  const char *format() const { return format_; }

  /// The format and its arguments.
  void write(recording::Writer &writer) const;
  recording::Format recorded() const;

  /// Calls `function` with the fixed arguments and then these.
  template <typename Function, typename... Fixed>
  auto pass_on(Function *function, Fixed... fixed) const {
    if (doubles_ == 0 && words_ <= kFew) return pass(function, std::make_index_sequence<kFew>(), fixed...);
    return pass(function, std::make_index_sequence<kDoubles>(), std::make_index_sequence<kWords>(), fixed...);
  }

 private:
  static constexpr std::size_t kFew = 6;
  static constexpr std::size_t kWords = 40;
  static constexpr std::size_t kDoubles = 8;  ///< as many as registers pass

  enum class Kind : std::uint8_t { signed_number, unsigned_number, real, text, null };

  struct Argument {
    Kind kind;
    std::uint64_t bits;  ///< of a text its length
    const char *text;
  };

  struct Source {
    std::va_list list;
  };

  template <typename Function, std::size_t... Word, typename... Fixed>
  auto pass(Function *function, std::index_sequence<Word...>, Fixed... fixed) const {
    return function(fixed..., word_[Word]...);
  }

  template <typename Function, std::size_t... Double, std::size_t... Word, typename... Fixed>
  auto pass(Function *function, std::index_sequence<Double...>, std::index_sequence<Word...>, Fixed... fixed) const {
    return function(fixed..., double_[Double]..., word_[Word]...);
  }

  /// What stands behind a percent sign, but for flags and width.
  struct Conversion {
    char letter = '\0';
    bool is_wide = false;  ///< with `l`
    int number_size = 0;   ///< bytes of the number that a letter of numbers takes
    long precision = -1;   ///< -1: none
  };

  static recording::Item item_of(const Argument &argument);
  const char *conversion(const char *at, Source &source);
  void argument(const Conversion &conversion, Source &source);
  const char *width(const char *at, Source &source, long &width);
  void number(bool is_signed, int size, Source &source);
  void text(long precision, Source &source);
  void real(Source &source);
  void pointer(Source &source);
  void add(Kind kind, std::uint64_t bits, const char *text);
  void add_word(std::uint64_t word);

  const char *format_;
  bool is_known_ = true;
  std::size_t words_ = 0;
  std::size_t doubles_ = 0;
  std::size_t count_ = 0;
  std::array<std::uint64_t, kWords> word_;
  std::array<double, kDoubles> double_;
  std::array<Argument, kWords + kDoubles> argument_;
};

/// Makes `name` of the arguments of the enclosing function after `format`.
#define HOOKS_FORMAT_ARGUMENTS(name, format)              \
  std::va_list name##_list;                               \
  va_start(name##_list, format);                          \
  const hooks::FormatArguments name(format, name##_list); \
  va_end(name##_list)

}  // namespace hooks

#endif
