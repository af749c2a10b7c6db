#include "agent/core/derived_nodes.h"

#include <gtest/gtest.h>

namespace {

using agent::PathStep;
using agent::read_derived;

process::Result shown_by(const std::string &out) {
  process::Result result;
  result.out = out;
  return result;
}

TEST(DerivedNodes, are_leafs_with_values_and_entries_without) {
  const auto nodes = read_derived(shown_by(R"json({"nodes": [
    {"path": "/internal/ac{campus \"a b\"}/tls", "value": "off (2)"},
    {"path": "/MIB/row{1}"}, {"path": "/MIB/a", "value": "7"}]})json"));
  ASSERT_TRUE(nodes);
  ASSERT_EQ(nodes->size(), 3u);
  EXPECT_EQ((*nodes)[0].path, (std::vector<PathStep>{{"internal", {}}, {"ac", {"campus", "a b"}}, {"tls", {}}}));
  EXPECT_EQ((*nodes)[0].value, "off");
  EXPECT_EQ((*nodes)[1].value, "");
  EXPECT_EQ((*nodes)[2].value, "7");
}

TEST(DerivedNodes, are_none_without_a_document) {
  EXPECT_FALSE(read_derived(shown_by("")));
  EXPECT_FALSE(read_derived(shown_by("[]")));
}

TEST(DerivedNodes, are_none_where_they_cannot_be_asked_for) {
  agent::Settings settings;
  settings.program = "/no/such/program";
  EXPECT_FALSE(derive(settings, "running.xml"));
}

}  // namespace
