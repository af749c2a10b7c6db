#include "maintenance/hooks/format_arguments.h"

#include <cstring>

namespace hooks {

namespace {

/// How many bytes of a number a conversion takes: of what its length modifier names.
int size_of_number(const char *&at) {
  switch (*at) {
    case 'h':
      at += at[1] == 'h' ? 2 : 1;
      return sizeof(int);
    case 'l':
      at += at[1] == 'l' ? 2 : 1;
      return sizeof(long);
    case 'q':
    case 'j':
    case 'z':
    case 't':
      ++at;
      return sizeof(long);
    default:
      return sizeof(int);
  }
}

}  // namespace

// The analyzer does not follow a list that is the member of another object.
// NOLINTBEGIN(clang-analyzer-valist.Uninitialized)

// Words that no argument fills are passed on, too: they must be something.
FormatArguments::FormatArguments(const char *format, std::va_list list) : format_(format) {
  Source source;
  va_copy(source.list, list);
  for (const char *at = std::strchr(format, '%'); at != nullptr; at = std::strchr(at, '%')) {
    at = at[1] == '%' ? at + 2 : conversion(at + 1, source);
  }
  va_end(source.list);
  const bool are_few = doubles_ == 0 && words_ <= kFew;
  for (std::size_t i = words_; i < (are_few ? kFew : kWords); ++i) word_[i] = 0;
  if (!are_few) {
    for (std::size_t i = doubles_; i < kDoubles; ++i) double_[i] = 0;
  }
}

const char *FormatArguments::width(const char *at, Source &source, long &width) {
  if (*at == '*') {
    const int given = va_arg(source.list, int);
    width = given;
    add(Kind::signed_number, static_cast<std::uint64_t>(std::int64_t{given}), nullptr);
    add_word(static_cast<std::uint64_t>(std::int64_t{given}));
    return at + 1;
  }
  for (width = 0; *at >= '0' && *at <= '9'; ++at) width = width * 10 + (*at - '0');
  return at;
}

const char *FormatArguments::conversion(const char *at, Source &source) {
  at += std::strspn(at, "-+ #0'");
  long ignored = 0;
  at = width(at, source, ignored);
  Conversion conversion;
  if (*at == '.') at = width(at + 1, source, conversion.precision);
  conversion.is_wide = *at == 'l';
  conversion.number_size = size_of_number(at);
  conversion.letter = *at;
  if (*at == '\0') {
    is_known_ = false;
    return at;
  }
  argument(conversion, source);
  return at + 1;
}

// Whatever a conversion that printf does not have takes, it is a pointer or a number: one word.
void FormatArguments::argument(const Conversion &conversion, Source &source) {
  const auto is_one_of = [&conversion](std::string_view letters) {
    return letters.find(conversion.letter) != std::string_view::npos;
  };
  if (conversion.letter == 's' && !conversion.is_wide) return text(conversion.precision, source);
  if (is_one_of("di")) return number(true, conversion.number_size, source);
  if (is_one_of("uxXo")) return number(false, conversion.number_size, source);
  if (conversion.letter == 'c') return number(true, sizeof(int), source);
  if (is_one_of("fFeEgGaA")) return real(source);
  pointer(source);
}

void FormatArguments::number(bool is_signed, int size, Source &source) {
  std::uint64_t bits = 0;
  if (size == sizeof(long)) {
    bits = va_arg(source.list, unsigned long);
  } else if (is_signed) {
    bits = static_cast<std::uint64_t>(std::int64_t{va_arg(source.list, int)});
  } else {
    bits = va_arg(source.list, unsigned);
  }
  add(is_signed ? Kind::signed_number : Kind::unsigned_number, bits, nullptr);
  add_word(bits);
}

// A text with a precision need not end with a zero.
void FormatArguments::text(long precision, Source &source) {
  const char *text = va_arg(source.list, const char *);
  add_word(reinterpret_cast<std::uint64_t>(text));
  if (text == nullptr) return add(Kind::null, 0, nullptr);
  const std::size_t size = precision < 0 ? std::strlen(text) : ::strnlen(text, static_cast<std::size_t>(precision));
  add(Kind::text, size, text);
}

void FormatArguments::real(Source &source) {
  const double number = va_arg(source.list, double);
  if (doubles_ == kDoubles) {
    is_known_ = false;
    return;
  }
  double_[doubles_++] = number;
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  add(Kind::real, bits, nullptr);
}

void FormatArguments::pointer(Source &source) {
  is_known_ = false;
  add_word(va_arg(source.list, std::uint64_t));
}

// NOLINTEND(clang-analyzer-valist.Uninitialized)

void FormatArguments::add(Kind kind, std::uint64_t bits, const char *text) {
  if (count_ == argument_.size()) {
    is_known_ = false;
    return;
  }
  argument_[count_++] = {kind, bits, text};
}

void FormatArguments::add_word(std::uint64_t word) {
  if (words_ == kWords) {
    is_known_ = false;
    return;
  }
  word_[words_++] = word;
}

// Texts are written where they are: the recorder makes no copies.
void FormatArguments::write(recording::Writer &writer) const {
  writer.format(format_);
  for (std::size_t i = 0; i < count_; ++i) {
    const Argument &argument = argument_[i];
    if (argument.kind == Kind::text) {
      writer.text_item({argument.text, argument.bits});
    } else {
      writer.item(item_of(argument));
    }
  }
}

recording::Format FormatArguments::recorded() const {
  recording::Format format{format_, {}};
  for (std::size_t i = 0; i < count_; ++i) format.arguments.push_back(item_of(argument_[i]));
  return format;
}

recording::Item FormatArguments::item_of(const Argument &argument) {
  switch (argument.kind) {
    case Kind::signed_number:
      return static_cast<std::int64_t>(argument.bits);
    case Kind::unsigned_number:
      return argument.bits;
    case Kind::real: {
      double number = 0;
      std::memcpy(&number, &argument.bits, sizeof number);
      return number;
    }
    case Kind::text:
      return std::string(argument.text, argument.bits);
    case Kind::null:
      break;
  }
  return recording::Null{};
}

}  // namespace hooks
