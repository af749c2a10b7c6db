#include "maintenance/hooks/format_arguments.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>

#include "maintenance/recording/recording.h"

namespace {

struct Passed {
  std::string text;  ///< by another function of the same arguments
  bool is_known = false;
  std::size_t arguments = 0;
};

[[gnu::format(printf, 1, 2)]] Passed passed(const char *format, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, format);
  std::string text(1000, '\0');
  const int size = arguments.pass_on(&std::snprintf, text.data(), text.size(), format);
  text.resize(static_cast<std::size_t>(size));
  return {text, arguments.is_known(), arguments.recorded().arguments.size()};
}

#define EXPECT_PASSED(count, ...)                                                                            \
  do {                                                                                                       \
    std::string expected(1000, '\0');                                                                        \
    expected.resize(static_cast<std::size_t>(std::snprintf(expected.data(), expected.size(), __VA_ARGS__))); \
    const Passed result = passed(__VA_ARGS__);                                                               \
    EXPECT_EQ(result.text, expected);                                                                        \
    EXPECT_TRUE(result.is_known);                                                                            \
    EXPECT_EQ(result.arguments, std::size_t{count});                                                         \
  } while (false)

TEST(FormatArguments, are_passed_on_as_they_are) {
  EXPECT_PASSED(0, "no argument, 100%%");
  EXPECT_PASSED(3, "/x{%s %d %u}", "a b", -1, 4294967295U);
  EXPECT_PASSED(6, "%s %s %s %s %s %s", "a", "b", "c", "d", "e", "f");
  EXPECT_PASSED(9, "%d %d %d %d %d %d %d %d %d", 1, -2, 3, -4, 5, -6, 7, -8, 9);
  EXPECT_PASSED(5, "%ld %lu %lld %zu %hhd", -1L, 2UL, -3LL, std::size_t{4}, static_cast<signed char>(5));
  EXPECT_PASSED(4, "%5.2s|%-8d|%#x|%c", "abc", 7, 255U, 'z');
  EXPECT_PASSED(4, "%*d %.*s", 8, 42, 3, "abcdef");
  EXPECT_PASSED(5, "%g %d %.3f %s %e", 1.5, 2, 3.25, "x", 1e9);
  EXPECT_PASSED(18, "%f %d %f %d %f %d %f %d %f %d %f %d %f %d %f %d %d %d", 1.0, 1, 2.0, 2, 3.0, 3, 4.0, 4, 5.0, 5,
                6.0, 6, 7.0, 7, 8.0, 8, 9, 10);
}

TEST(FormatArguments, keep_their_types) {
  const auto recorded = [](const char *format, ...) {
    HOOKS_FORMAT_ARGUMENTS(arguments, format);
    return arguments.recorded();
  };
  const recording::Format format = recorded("%s{%d %u %s}", "list", -5, 6U, static_cast<const char *>(nullptr));
  EXPECT_EQ(format.text, "%s{%d %u %s}");
  EXPECT_EQ(format.arguments,
            (recording::Items{std::string("list"), std::int64_t{-5}, std::uint64_t{6}, recording::Null{}}));
}

TEST(FormatArguments, of_an_unknown_conversion_are_passed_on_and_told) {
  const auto is_known = [](const char *format, ...) {
    HOOKS_FORMAT_ARGUMENTS(arguments, format);
    return arguments.is_known();
  };
  const int number = 0;
  EXPECT_FALSE(is_known("%h", &number));
  EXPECT_FALSE(is_known("%p", &number));
  EXPECT_FALSE(is_known("%"));
}

}  // namespace
