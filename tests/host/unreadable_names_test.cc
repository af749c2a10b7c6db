#include "host/run/unreadable_names.h"

#include <gtest/gtest.h>

#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;
using Keys = std::vector<std::string>;

/// The cause for a transaction that adds VPWS groups of these names.
std::string cause(const Keys &groups, const std::string &path, const Keys &keys) {
  const element::Tree running(host_test::schema());
  element::Tree candidate(host_test::schema());
  const element::Path list = element::parse_path(host_test::schema(), "/mpls/l2vpn-config/l2vpn/vpws-group{x}");
  for (const std::string &group : groups) {
    element::Path entry = list;
    entry.back().keys = {group};
    candidate.put(element::to_text(entry));
  }
  const element::Transaction transaction(running, candidate);
  return host::UnreadableNames(transaction).cause_of({SeamFunction::maapi_exists, path, keys});
}

TEST(UnreadableNames, a_name_in_quotes_is_read_without_them) {
  EXPECT_EQ(cause({"\"a\""}, "/l{\"a\"}", {"a"}), "\"a\"");
  EXPECT_EQ(cause({"a\" \"b"}, "/l{a\" \"b}", {"a b"}), "a\" \"b");
}

TEST(UnreadableNames, quotes_that_the_caller_set_around_a_name_do_no_harm) {
  EXPECT_EQ(cause({"a b"}, "/l{\"a b\"}", {"a b"}), "");
  EXPECT_EQ(cause({"\"a\""}, "/l{\"\\\"a\\\"\"}", {"\"a\""}), "");
}

TEST(UnreadableNames, the_longest_name_that_a_path_holds_is_the_cause) {
  EXPECT_EQ(cause({"a b", "a b c", "c"}, "/l{a b c}", {}), "a b c");
  EXPECT_EQ(cause({"a b", "c"}, "/l{c}", {}), "");
}

}  // namespace
