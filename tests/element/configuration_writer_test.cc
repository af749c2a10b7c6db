#include "element/output/configuration_writer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "element/datastore/difference.h"
#include "element/input/configuration.h"

namespace {

using element::InputFormat;

class ConfigurationWriter : public testing::TestWithParam<InputFormat> {
 protected:
  void expect_read_back(const element::Tree &tree) {
    const std::string text = write_configuration(tree, GetParam());
    const element::Tree back = element::parse_configuration(schema, text, "written");
    EXPECT_TRUE(difference(tree, back).children.empty()) << text;
  }

  const element::Schema schema;
};

TEST_P(ConfigurationWriter, what_it_writes_reads_back_as_the_same) {
  element::Tree tree(schema);
  const std::string vpn = R"(/mpls/l2vpn-config/l2vpn/vpws-group{a&b}/vpn{"x < 'y' \"z\""})";
  tree.put(vpn + "/neighbor{192.0.2.1}/pw-id", std::uint32_t{4294967295});
  tree.put(vpn + "/access-interface{ge-1}/dot1q", std::uint16_t{7});
  tree.put(vpn + "/access-interface{ge-2}/encapsulation/dot1q-range{2 5}");
  tree.put(vpn + "/access-interface{ge-3}/encapsulation/untagged", element::Empty{});
  tree.put("/config/vlan{100}/interface{ge-2}");
  tree.sort();
  expect_read_back(tree);
}

TEST_P(ConfigurationWriter, a_configuration_without_a_node_reads_back_as_one) {
  expect_read_back(element::Tree(schema));
}

TEST_P(ConfigurationWriter, derived_nodes_are_left_out) {
  element::Tree tree(schema);
  for (const auto &top : schema.root().children) {
    if (top->derived) child(tree.root(), *top);
  }
  ASSERT_FALSE(std::as_const(tree).root().children.empty());
  EXPECT_EQ(write_configuration(tree, GetParam()), write_configuration(element::Tree(schema), GetParam()));
}

TEST_P(ConfigurationWriter, a_value_that_the_data_model_does_not_allow_is_an_error) {
  element::Tree tree(schema);
  tree.put("/config/vlan{100}");
  tree.put_entry("/config/vlan", {std::string("no number")});
  EXPECT_THROW(write_configuration(tree, GetParam()), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Formats, ConfigurationWriter, testing::Values(InputFormat::xml, InputFormat::json),
                         [](const auto &format) { return format.param == InputFormat::xml ? "xml" : "json"; });

}  // namespace
