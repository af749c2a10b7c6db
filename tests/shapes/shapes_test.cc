#include "bench/shapes.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "element/datastore/transaction.h"
#include "element/input/configuration.h"
#include "element/output/configuration_writer.h"
#include "host/run/commit.h"
#include "tests/support/build_under_test.h"

using bench::Shape;

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

class Shapes : public testing::TestWithParam<std::tuple<Shape, std::size_t>> {
 protected:
  bench::Commit commit() const { return make_commit(schema(), std::get<0>(GetParam()), size()); }
  static std::size_t size() { return std::get<1>(GetParam()); }
};

std::size_t attachments(const element::Tree &tree) {
  return tree.find("/internal/int-sub-vpls-vpn-ac")->children.size() +
         tree.find("/internal/int-vpws-intf-app")->children.size();
}

TEST_P(Shapes, hold_as_many_access_interfaces_as_asked) {
  bench::Commit commit = this->commit();
  const auto transaction = make_transaction(std::move(commit.running), std::move(commit.candidate), commit.profile);
  EXPECT_EQ(attachments(transaction->running), size() * 9 / 10);
  EXPECT_EQ(attachments(transaction->candidate), size());
}

// Every message of a rejection is in the failure's text.
TEST_P(Shapes, are_accepted_without_a_warning) {
  bench::Commit commit = this->commit();
  const auto transaction = make_transaction(std::move(commit.running), std::move(commit.candidate), commit.profile);
  host::HostSession session(commit.profile);
  const host::Plugin plugin(plugin_file());
  const host::Verdict verdict = validate_commit(plugin, session, *transaction, {.all_points = true});
  EXPECT_EQ(verdict.decision, host::Decision::accepted);
  EXPECT_FALSE(verdict.points.empty());
  for (const host::PointVerdict &point : verdict.points)
    EXPECT_EQ(point.answer, host::Answer::accepted) << point.point << ": " << point.text;
}

TEST_P(Shapes, read_back_from_their_xml_text) {
  const bench::Commit commit = this->commit();
  const element::Tree read = element::parse_configuration(
      schema(), write_configuration(commit.candidate, element::InputFormat::xml), "candidate.xml");
  EXPECT_TRUE(difference(commit.candidate, read).children.empty());
}

std::string name_of(const testing::TestParamInfo<Shapes::ParamType> &info) {
  const auto [shape, size] = info.param;
  return std::string(name(shape)) + "_" + std::to_string(size);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Shapes,
                         testing::Combine(testing::Values(Shape::many_ports, Shape::few_ports, Shape::one_vpn),
                                          testing::Values<std::size_t>(1, 10, 130)),
                         name_of);

// A port takes 4,094 VLANs.
INSTANTIATE_TEST_SUITE_P(OnASecondPort, Shapes, testing::Values(std::tuple(Shape::few_ports, std::size_t{4100})),
                         name_of);

}  // namespace
