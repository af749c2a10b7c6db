#include <gtest/gtest.h>

#include "config_validate_vpn/drivers/vpn_peer.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"
#include "tests/support/rule_message.h"

namespace {

using scripted::Pw;
using scripted::pw_map;
using scripted::u32;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

class PeerExchangeTest : public scripted::PlatformTest {
 protected:
  void run_vpws(const Pw &pw) {
    platform.running().entry(scripted::kVpwsTunnelList, scripted::vpws_tunnel(pw), scripted::kPwListKeys);
  }
  void run_vpls(const Pw &pw) {
    platform.running().entry(scripted::kVplsNeighborList, scripted::vpls_neighbor(pw), scripted::kPwListKeys);
  }
  void set_vpws_pw_id(const Pw &of, std::uint32_t pw_id) {
    platform.change(scripted::vpws_pw_id_path(of), MOP_VALUE_SET, u32(pw_id));
  }
  void set_vpls_pw_id(const Pw &of, std::uint32_t pw_id) {
    platform.change(scripted::vpls_pw_id_path(of), MOP_VALUE_SET, u32(pw_id));
  }

  std::int32_t verdict(const std::vector<Pw> &committing) {
    return config_validate_peer_exchange(platform.socket(), &platform.context(), pw_map(committing));
  }

  std::string traced(const std::vector<Pw> &committing) {
    EXPECT_EQ(verdict(committing), 0);
    return platform.trace().size() == 1 ? platform.trace()[0].text : "not traced once";
  }
};

TEST_F(PeerExchangeTest, rejects_a_pw_id_that_the_running_configuration_has_in_either_family) {
  const Pw east{"north", "east", "10.0.0.1", 20};
  set_vpws_pw_id(east, 20);
  run_vpls({"south", "west", "10.0.0.1", 20});
  EXPECT_EQ(verdict({east}), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pw-id-moved", {"20", "west", "south", "west"})});
}

TEST_F(PeerExchangeTest, of_two_running_pseudowires_with_one_key_the_vpws_one_is_named) {
  const Pw east{"north", "east", "10.0.0.1", 20};
  set_vpls_pw_id(east, 20);
  run_vpls({"south", "vpls", "10.0.0.1", 20});
  run_vpws({"south", "vpws", "10.0.0.1", 20});
  EXPECT_EQ(verdict({east}), -1);
  EXPECT_EQ(platform.error(), message_of("pw-id-moved", {"20", "vpws", "south", "vpws"}));
}

TEST_F(PeerExchangeTest, accepts_a_pw_id_that_the_running_configuration_has_towards_another_neighbor) {
  const Pw east{"north", "east", "10.0.0.1", 20};
  set_vpws_pw_id(east, 20);
  run_vpls({"south", "west", "10.0.0.2", 20});
  EXPECT_EQ(verdict({east}), 0);
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_F(PeerExchangeTest, the_first_pseudowire_in_map_order_is_reported) {
  const Pw first{"north", "first", "10.0.0.1", 10};
  const Pw second{"north", "second", "10.0.0.1", 20};
  set_vpls_pw_id(second, 20);
  set_vpws_pw_id(first, 10);
  run_vpws({"G", "A", "10.0.0.1", 10});
  run_vpws({"G", "B", "10.0.0.1", 20});
  EXPECT_EQ(verdict({second, first}), -1);
  EXPECT_EQ(platform.error(), message_of("pw-id-moved", {"10", "A", "G", "A"}));
}

TEST_F(PeerExchangeTest, asks_both_families_about_every_pseudowire_and_traces_last) {
  EXPECT_EQ(verdict({{"north", "east", "10.0.0.1", 10}, {"south", "west", "10.0.0.1", 20}}), 0);
  const std::string ask = "maapi_keypath_diff_iterate ";
  const Pw east{"north", "east", "10.0.0.1", 10};
  const Pw west{"south", "west", "10.0.0.1", 20};
  EXPECT_EQ(
      platform.calls(),
      (Calls{"qnconfd_instance_get", "cdb_session_start 1 true",
             std::string("cdb_num_instances ") + scripted::kVpwsTunnelList, "cdb_session_end", "qnconfd_instance_get",
             "cdb_session_start 1 true", std::string("cdb_num_instances ") + scripted::kVplsNeighborList,
             "cdb_session_end", ask + scripted::vpws_pw_id_path(east),
             ask + scripted::vpws_pw_id_path(east, "backup-neighbor"), ask + scripted::vpls_pw_id_path(east),
             ask + scripted::vpws_pw_id_path(west), ask + scripted::vpws_pw_id_path(west, "backup-neighbor"),
             ask + scripted::vpls_pw_id_path(west), "qnmw_trace_register_category vpn-validation-debug", "zlog"}));
}

TEST_F(PeerExchangeTest, a_rejection_is_not_traced) {
  const Pw east{"north", "east", "10.0.0.1", 20};
  set_vpws_pw_id(east, 20);
  run_vpws(east);
  EXPECT_EQ(verdict({east}), -1);
  EXPECT_EQ(platform.count("zlog"), 0U);
  EXPECT_EQ(platform.count("qnmw_trace_register_category"), 0U);
  EXPECT_EQ(platform.count("maapi_keypath_diff_iterate"), 1U) << "nothing is asked after a rejection";
}

TEST_F(PeerExchangeTest, traces_both_configurations_with_a_fixed_origin) {
  run_vpws({"north", "east", "10.0.0.2", 100});
  EXPECT_EQ(verdict({{"north", "east", "10.0.0.2", 101}, {"south", "west", "192.168.255.1", 4294967295}}), 0);
  const scripted::TraceCall expected{"vpn-validation-debug",
                                     "src/lib/config_validate_vpn.cc",
                                     30,
                                     "config_validate_peer_exchange",
                                     29,
                                     177,
                                     12,
                                     "\n"
                                     ". Running mpls l2vpn PWs config:\n"
                                     ".     [north, east, 10.0.0.2, 100]\n"
                                     ". end.\n"
                                     ". Committing mpls l2vpn PWs config:\n"
                                     ".     [south, west, 192.168.255.1, 4294967295]\n"
                                     ".     [north, east, 10.0.0.2, 101]\n"
                                     ". end.\n"};
  EXPECT_EQ(platform.trace(), std::vector<scripted::TraceCall>{expected});
}

TEST_F(PeerExchangeTest, traces_empty_configurations) {
  EXPECT_EQ(traced({}),
            "\n"
            ". Running mpls l2vpn PWs config:\n"
            ". end.\n"
            ". Committing mpls l2vpn PWs config:\n"
            ". end.\n");
}

// The order is that of the numbers in memory, not that of the dotted addresses.
TEST_F(PeerExchangeTest, traces_neighbors_by_their_address_in_memory_then_by_pw_id) {
  ASSERT_LT(scripted::address_word("11.0.0.1"), scripted::address_word("10.0.0.2")) << "on a little-endian machine";
  EXPECT_EQ(traced({{"G", "V", "10.0.0.2", 1}, {"G", "V", "11.0.0.1", 10}, {"G", "V", "11.0.0.1", 9}}),
            "\n"
            ". Running mpls l2vpn PWs config:\n"
            ". end.\n"
            ". Committing mpls l2vpn PWs config:\n"
            ".     [G, V, 11.0.0.1, 9]\n"
            ".     [G, V, 11.0.0.1, 10]\n"
            ".     [G, V, 10.0.0.2, 1]\n"
            ". end.\n");
}

TEST_F(PeerExchangeTest, traces_names_that_look_like_formats) {
  EXPECT_EQ(traced({{"%s%n", "100%", "10.0.0.2", 1}}),
            "\n"
            ". Running mpls l2vpn PWs config:\n"
            ". end.\n"
            ". Committing mpls l2vpn PWs config:\n"
            ".     [%s%n, 100%, 10.0.0.2, 1]\n"
            ". end.\n");
}

TEST_F(PeerExchangeTest, traces_without_a_category_when_it_cannot_be_registered) {
  platform.fail("qnmw_trace_register_category", 1);
  EXPECT_EQ(verdict({}), 0);
  ASSERT_EQ(platform.trace().size(), 1U);
  EXPECT_EQ(platform.trace()[0].category, "");
}

}  // namespace
