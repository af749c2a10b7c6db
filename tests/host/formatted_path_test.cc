#include "host/seam/formatted_path.h"

#include <gtest/gtest.h>

#include <cstdarg>
#include <optional>
#include <string>
#include <vector>

namespace {

/// Names as they are, "+" where braces follow; keys in brackets.
using Parts = std::optional<std::vector<std::string>>;

Parts parts(const char *format, ...) {
  host::FormattedPath path;
  std::va_list arguments;
  va_start(arguments, format);
  const bool is_path = path.format(format, arguments);
  va_end(arguments);
  if (!is_path) return std::nullopt;

  std::vector<std::string> result;
  for (const host::FormattedPath::Part &part : path) {
    const std::string text(part.text);
    result.push_back(part.is_key ? '[' + text + ']' : text + (part.has_braces ? "+" : ""));
  }
  return result;
}

Parts is(std::vector<std::string> expected) { return expected; }

constexpr std::nullopt_t kNoPath = std::nullopt;

TEST(PathFormat, splits_names_and_keys) {
  EXPECT_EQ(parts("/internal"), is({"internal"}));
  EXPECT_EQ(parts("/base:config/service-port{7}/match"), is({"base:config", "service-port+", "[7]", "match"}));
  EXPECT_EQ(parts("/l{a b}"), is({"l+", "[a]", "[b]"}));
  EXPECT_EQ(parts("/l{  a   b }"), is({"l+", "[a]", "[b]"}));
  EXPECT_EQ(parts("/l{gigabit-ethernet-1/1/1}/x"), is({"l+", "[gigabit-ethernet-1/1/1]", "x"}));
  EXPECT_EQ(parts("/l{}"), is({"l+"}));
  EXPECT_EQ(parts("/"), is({""}));
}

TEST(PathFormat, substitutes_arguments_inside_and_outside_braces) {
  EXPECT_EQ(parts("/l{%s}/%s", "a", "x"), is({"l+", "[a]", "x"}));
  EXPECT_EQ(parts("/l{%s %s %u}/x", "a", "b", 7U), is({"l+", "[a]", "[b]", "[7]", "x"}));
  EXPECT_EQ(parts("%s{1 %d %d}", "/a/l", 100, -5), is({"a", "l+", "[1]", "[100]", "[-5]"}));
  EXPECT_EQ(parts("/l{a%sc}", "b"), is({"l+", "[abc]"}));
  EXPECT_EQ(parts("/%s%s{%s%u}", "na", "me", "k", 1U), is({"name+", "[k1]"}));
}

TEST(PathFormat, writes_numbers_as_printf_does) {
  EXPECT_EQ(parts("/l{%d %i %u %x}", -1, -2147483647, 4294967295U, 255U),
            is({"l+", "[-1]", "[-2147483647]", "[4294967295]", "[ff]"}));
  EXPECT_EQ(parts("/l{%ld %lu %lx}", -4294967296L, 18446744073709551615UL, 4294967296UL),
            is({"l+", "[-4294967296]", "[18446744073709551615]", "[100000000]"}));
  EXPECT_EQ(parts("/l{%lld %llu}", -1LL, 18446744073709551615ULL), is({"l+", "[-1]", "[18446744073709551615]"}));
  EXPECT_EQ(parts("/l{%u}", -1), is({"l+", "[4294967295]"}));
  EXPECT_EQ(parts("/l{5%%}"), is({"l+", "[5%]"}));
}

TEST(PathFormat, an_argument_inside_braces_is_one_key_whatever_it_holds) {
  for (const char *text : {"a b", " a", "", "a}b", "{", "}", "\"", "a\"b", "\\", "/x", "%s"}) {
    EXPECT_EQ(parts("/l{%s}/x", text), is({"l+", '[' + std::string(text) + ']', "x"})) << text;
    EXPECT_EQ(parts("/l{%s c}", text), is({"l+", '[' + std::string(text) + ']', "[c]"})) << text;
    EXPECT_EQ(parts("/l{\"%s\"}", text), is({"l+", '[' + std::string(text) + ']'})) << text;
  }
}

TEST(PathFormat, text_that_was_formatted_before_is_read_as_it_stands) {
  EXPECT_EQ(parts("%s", "/l{a b}/x"), is({"l+", "[a]", "[b]", "x"}));
  EXPECT_EQ(parts("%s/pw-id", "/l{10.0.0.1}"), is({"l+", "[10.0.0.1]", "pw-id"}));
  EXPECT_EQ(parts("%s}/x", "/l{a"), is({"l+", "[a]", "x"}));
  EXPECT_EQ(parts("%s", "/l{a}b}"), kNoPath);
}

TEST(PathFormat, an_argument_after_an_open_brace_of_another_is_a_key_too) {
  EXPECT_EQ(parts("%s %s}", "/l{a", "b c"), is({"l+", "[a]", "[b c]"}));
}

TEST(PathFormat, quotes_keep_blanks_and_braces_in_one_key) {
  EXPECT_EQ(parts("/l{\"a b\" c}"), is({"l+", "[a b]", "[c]"}));
  EXPECT_EQ(parts("/l{\"\"}"), is({"l+", "[]"}));
  EXPECT_EQ(parts("/l{a\" }\"b}"), is({"l+", "[a }b]"}));
  EXPECT_EQ(parts("/l{\"a\\\"b\\\\\"}"), is({"l+", "[a\"b\\]"}));
  EXPECT_EQ(parts("/l{a\\b}"), is({"l+", "[a\\b]"}));
  EXPECT_EQ(parts("/l{\"\\%s\"}", "x y"), is({"l+", "[x y]"}));
}

TEST(PathFormat, refuses_what_is_no_path) {
  for (const char *text : {"", "x", "x/y", "//", "/x//y", "/x/", "/{a}", "/l{a", "/l{\"a}", "/l{a}x", "/l{a}{b}",
                           "/l{a}/", "/l{\"a\\", "/x%", "/l{50%}", "/l{%f}", "/l{%5d}", "/l{%.3s}"}) {
    EXPECT_EQ(parts(text), kNoPath) << text;
  }
}

TEST(PathFormat, takes_paths_of_any_length) {
  const std::string key(5000, 'k');
  EXPECT_EQ(parts("/l{%s}/x", key.c_str()), is({"l+", '[' + key + ']', "x"}));

  std::string deep;
  std::vector<std::string> names;
  for (int i = 0; i < 300; ++i) {
    names.push_back("n" + std::to_string(i));
    deep += '/' + names.back();
  }
  EXPECT_EQ(parts("%s", deep.c_str()), is(names));
}

TEST(PathFormat, takes_any_number_of_numbers_and_of_pieces_of_a_key) {
  constexpr unsigned long long most = 18446744073709551615ULL;
  const std::string digits = "18446744073709551615";
  std::vector<std::string> expected(8, '[' + digits + ']');
  expected.insert(expected.begin(), "l+");
  EXPECT_EQ(parts("/l{%llu %llu %llu %llu %llu %llu %llu %llu}", most, most, most, most, most, most, most, most),
            is(expected));
  EXPECT_EQ(parts("/l{%llu-%llu-%llu-%llu-%llu-%s-%llu-%llu}", most, most, most, most, most, "x", most, most),
            is({"l+", '[' + digits + '-' + digits + '-' + digits + '-' + digits + '-' + digits + "-x-" + digits + '-' +
                          digits + ']'}));
}

TEST(PathFormat, a_null_text_reads_as_printf_writes_it) {
  EXPECT_EQ(parts("/l{%s}", static_cast<const char *>(nullptr)), is({"l+", "[(null)]"}));
}

}  // namespace
