#include "fm.h"
#include "limid.h"
#include "qnconfd.h"
#include "qnmw_trace.h"
#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

class DaemonTest : public ConformanceTest {};

TEST_F(DaemonTest, the_context_leads_to_the_socket_and_the_instance) {
  stage->open();
  EXPECT_EQ(qnconfd_maapi_socket_get(stage->context().vcb_opaque), stage->socket());
  EXPECT_NE(qnconfd_instance_get(stage->context().vcb_opaque), nullptr);
}

TEST_F(DaemonTest, a_text_is_formatted_and_the_last_one_stands) {
  stage->open();
  confd_trans_seterr(&stage->context(), "%s has %d of %u", "north", -1, 4294967295U);
  EXPECT_EQ(stage->error(), "north has -1 of 4294967295");
  const std::string longer(5000, 'x');
  confd_trans_seterr(&stage->context(), "%s", longer.c_str());
  EXPECT_EQ(stage->error(), longer);
}

TEST_F(DaemonTest, the_time_out_is_extended) {
  stage->open();
  EXPECT_EQ(confd_data_set_timeout(&stage->context(), 120), CONFD_OK);
  EXPECT_EQ(confd_data_set_timeout(&stage->context(), 60), CONFD_OK);
  EXPECT_EQ(stage->timeouts(), (std::vector<int>{120, 60}));
}

TEST_F(DaemonTest, a_trace_goes_to_its_category) {
  stage->open();
  zlog_category_t *category = qnmw_trace_register_category("some-category");
  ASSERT_NE(category, nullptr);
  EXPECT_EQ(qnmw_trace_register_category("some-category"), category);
  zlog(category, "file.cc", 7, "function", 8, 12, 20, "\n%s %d", "text", 5);
  EXPECT_EQ(stage->trace(), std::vector<std::string>{"some-category: \ntext 5"});
}

class CardTest : public ConformanceTest {};

TEST_F(CardTest, interfaces_are_known_by_name_identifier_and_index) {
  stage->add_interface("gigabit-1", 11, 1001);
  stage->add_interface("gigabit-10", 12, 1002);
  stage->open();
  limid_t limid = 0;
  EXPECT_EQ(limid_from_intfname("gigabit-10", &limid), 0);
  EXPECT_EQ(limid, 12U);
  EXPECT_EQ(limid_from_ifindex(1001, &limid), 0);
  EXPECT_EQ(limid, 11U);
  std::int32_t ifindex = 0;
  EXPECT_EQ(limid_to_ifindex(12, &ifindex), 0);
  EXPECT_EQ(ifindex, 1002);
  char name[64] = "";
  EXPECT_EQ(limid_to_intfname(12, name, sizeof name), 0);
  EXPECT_STREQ(name, "gigabit-10");
  EXPECT_TRUE(valid_intfname("gigabit-1"));
}

TEST_F(CardTest, a_name_of_63_characters_fits_a_buffer_of_64) {
  const std::string longest(63, 'g');
  stage->add_interface(longest, 12, 1002);
  stage->open();
  char name[64] = "";
  EXPECT_EQ(limid_to_intfname(12, name, sizeof name), 0);
  EXPECT_EQ(name, longest);
}

TEST_F(CardTest, an_unknown_interface_leaves_the_output_alone) {
  stage->add_interface("gigabit-1", 11, 1001);
  stage->open();
  limid_t limid = 77;
  EXPECT_NE(limid_from_intfname("gigabit-2", &limid), 0);
  EXPECT_NE(limid_from_ifindex(1002, &limid), 0);
  EXPECT_EQ(limid, 77U);
  std::int32_t ifindex = 77;
  EXPECT_NE(limid_to_ifindex(12, &ifindex), 0);
  EXPECT_EQ(ifindex, 77);
  char name[64] = "untouched";
  EXPECT_NE(limid_to_intfname(12, name, sizeof name), 0);
  EXPECT_STREQ(name, "untouched");
  EXPECT_FALSE(valid_intfname("gigabit-2"));
  EXPECT_FALSE(valid_intfname("gigabit-"));
}

TEST_F(CardTest, tells_its_limits_for_its_own_slot) {
  stage->set_vpn_max(128);
  stage->open();
  fm_slot_t slot{};
  EXPECT_EQ(fm_init(), 0);
  EXPECT_EQ(fm_local_slot(&slot), 0);
  std::uint32_t limit = 77;
  EXPECT_EQ(fm_scalar_card_hal_vpn_vpn_max_limit(&slot, &limit), 0);
  EXPECT_EQ(limit, 128U);
}

TEST_F(CardTest, a_limit_that_it_does_not_tell_leaves_the_output_alone) {
  stage->set_vpn_max(std::nullopt);
  stage->open();
  fm_slot_t slot{};
  fm_init();
  fm_local_slot(&slot);
  std::uint32_t limit = 77;
  EXPECT_NE(fm_scalar_card_hal_vpn_vpn_max_limit(&slot, &limit), 0);
  EXPECT_EQ(limit, 77U);
}

}  // namespace
}  // namespace conformance
