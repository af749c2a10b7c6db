#include "config_validate_comn/snapshot/snapshot_loading.h"

#include "config_validate_comn/daemon/model_tags.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::text;
using scripted::u32;
using scripted::Value;
using scripted::Values;

constexpr const char *kVplsRed = "eth-1 vpls-group north vpn red";
constexpr const char *kVpwsBlue = "eth-1 vpws-group west vpn blue";

class SnapshotLoadingTest : public AccessTest {
 protected:
  std::int32_t load_vpls() { return get_vpn_access(sock(), tctx(), "vpls-group ", kVplsAttachments, snapshot); }
  std::int32_t load_vpws() { return get_vpn_access(sock(), tctx(), "vpws-group ", kVpwsAttachments, snapshot); }

  /// A VPLS attachment together with the list that the loader takes its VLAN from.
  void add_vpls(const Vpls &a) {
    add(a);
    platform.entry("/internal/int-sub-vpls-vpn-bd", {text(a.group), text(a.vpn), u32(a.id)}, 3);
    platform.leaf(vlan_path(a), u32(a.vlan));
  }

  static std::string vlan_path(const Vpls &a) {
    return "/internal/int-sub-vpls-vpn-bd{\"" + a.group + "\" \"" + a.vpn + "\" " + std::to_string(a.id) +
           "}/int-vpls-bd-vlan";
  }
  static std::string vpls_encap(const Vpls &a, const std::string &leaf) {
    return bridge_domain(a) + "/int-vpls-ac{" + a.interface + "}/int-vpls-encap/int-vpls-encap-" + leaf;
  }
  static std::string vpws_encap(const Vpws &a, const std::string &leaf) {
    return encap_entry(a) + "/int-vpws-encap-" + leaf;
  }
};

struct LoadCase {
  const char *name;
  std::uint32_t vlan;
  bool untagged;
  Ranges ranges;
  Claims claims;
};

const std::vector<LoadCase> load_cases{
    {"a VLAN alone", 100, false, {}, {{{100, 100}}, false}},
    {"nothing: the whole port", 0, false, {}, {{{0, 0}}, false}},
    {"untagged alone", 0, true, {}, {{{0, 0}}, true}},
    {"untagged: the VLAN is not recorded", 100, true, {}, {{{0, 0}}, true}},
    {"ranges alone", 0, false, {{10, 20}, {30, 40}}, {{{10, 20}, {30, 40}}, true}},
    {"ranges and a VLAN", 5, false, {{10, 20}, {30, 40}}, {{{5, 5}, {10, 20}, {30, 40}}, true}},
    {"a range that starts at the VLAN is absorbed", 10, false, {{10, 20}, {30, 40}}, {{{10, 10}, {30, 40}}, true}},
    {"a VLAN inside a range stays beside it", 15, false, {{10, 20}}, {{{10, 20}, {15, 15}}, true}},
    {"untagged and ranges", 0, true, {{10, 20}}, {{{0, 0}, {10, 20}}, true}},
    {"untagged, ranges and a VLAN", 5, true, {{10, 20}}, {{{0, 0}, {5, 5}, {10, 20}}, true}},
    {"two ranges with one minimum: the first of the list", 0, false, {{10, 12}, {10, 20}}, {{{10, 12}}, true}},
};

class AttachmentLoadingTest : public SnapshotLoadingTest, public ::testing::WithParamInterface<LoadCase> {};

void PrintTo(const LoadCase &row, std::ostream *out) { *out << row.name; }

TEST_P(AttachmentLoadingTest, records_a_vpls_attachment) {
  const LoadCase &row = GetParam();
  add_vpls({.vlan = row.vlan, .untagged = row.untagged, .ranges = row.ranges});
  EXPECT_EQ(load_vpls(), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVplsRed, row.claims}}));
}

TEST_P(AttachmentLoadingTest, records_a_vpws_attachment) {
  const LoadCase &row = GetParam();
  add(Vpws{.vlan = row.vlan, .untagged = row.untagged, .ranges = row.ranges});
  EXPECT_EQ(load_vpws(), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, row.claims}}));
}

INSTANTIATE_TEST_SUITE_P(Attachments, AttachmentLoadingTest, ::testing::ValuesIn(load_cases));

TEST_F(SnapshotLoadingTest, reads_a_vpls_attachment_in_this_order) {
  add_vpls({.vlan = 5, .untagged = true, .ranges = {{10, 20}, {30, 40}}});
  load_vpls();
  const std::string untagged = vpls_encap({}, "untagged");
  const std::string ranges = vpls_encap({}, "dot1q-range");
  EXPECT_EQ(platform.calls(), (Calls{
                                  "maapi_init_cursor /internal/int-sub-vpls-vpn-ac",
                                  "maapi_get_next /internal/int-sub-vpls-vpn-ac",
                                  "maapi_get_u_int32_elem /internal/int-sub-vpls-vpn-bd{north red 1}/int-vpls-bd-vlan",
                                  "maapi_exists " + untagged,
                                  "maapi_get_enum_value_elem " + untagged,
                                  "maapi_num_instances " + ranges,
                                  "maapi_init_cursor " + ranges,
                                  "maapi_get_objects " + ranges + " 2x2",
                                  "maapi_destroy_cursor " + ranges,
                                  "maapi_get_next /internal/int-sub-vpls-vpn-ac",
                                  "maapi_destroy_cursor /internal/int-sub-vpls-vpn-ac",
                              }));
  EXPECT_EQ(
      untagged,
      "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac{eth-1}/int-vpls-encap/int-vpls-encap-untagged");
}

TEST_F(SnapshotLoadingTest, reads_a_vpws_attachment_in_this_order) {
  add(Vpws{.vlan = 5});
  load_vpws();
  EXPECT_EQ(platform.calls(),
            (Calls{
                "maapi_init_cursor /internal/int-vpws-intf-app",
                "maapi_get_next /internal/int-vpws-intf-app",
                "maapi_exists /internal/int-vpws-intf-encap{west blue 7 eth-1}/int-vpws-encap-untagged",
                "maapi_num_instances /internal/int-vpws-intf-encap{west blue 7 eth-1}/int-vpws-encap-dot1q-range",
                "maapi_get_next /internal/int-vpws-intf-app",
                "maapi_destroy_cursor /internal/int-vpws-intf-app",
            }));
}

TEST_F(SnapshotLoadingTest, loads_every_attachment_of_both_families) {
  add_vpls({.vpn = "green", .id = 2, .interface = "eth-1", .vlan = 10});
  add_vpls({.vpn = "green", .id = 2, .interface = "eth-2", .vlan = 10});
  add_vpls({.vpn = "red", .id = 1, .interface = "eth-1", .vlan = 20});
  add(Vpws{.interface = "eth-1", .vlan = 30});
  EXPECT_EQ(load_vpls(), 0);
  EXPECT_EQ(load_vpws(), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{
                            {"eth-1 vpls-group north vpn green", {{{10, 10}}, false}},
                            {"eth-2 vpls-group north vpn green", {{{10, 10}}, false}},
                            {"eth-1 vpls-group north vpn red", {{{20, 20}}, false}},
                            {"eth-1 vpws-group west vpn blue", {{{30, 30}}, false}},
                        }));
  EXPECT_EQ(snapshot.intf_map.at("eth-1").begin()->first.vpn_type, VPN_TYPE_VPLS);
  EXPECT_EQ(snapshot.intf_map.at("eth-1").rbegin()->first.vpn_type, VPN_TYPE_VPWS);
}

TEST_F(SnapshotLoadingTest, two_ids_of_one_vpn_are_one_key) {
  add(Vpws{.id = 7, .vlan = 10});
  add(Vpws{.id = 8, .vlan = 20});
  load_vpws();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, {{{10, 10}, {20, 20}}, false}}}));
}

TEST_F(SnapshotLoadingTest, an_empty_or_missing_list_leaves_the_snapshot_as_it_is) {
  record_vlan("vpls-group x", "vpn x", "eth-4", 1);
  const auto before = recorded();
  EXPECT_EQ(load_vpls(), 0);
  EXPECT_EQ(get_vpn_access(sock(), tctx(), "vpls-group ", "/internal/no-such-list", snapshot), 0);
  EXPECT_EQ(recorded(), before);
}

TEST_F(SnapshotLoadingTest, a_bridge_domain_that_cannot_be_read_has_no_vlan) {
  add(Vpls{});
  load_vpls();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVplsRed, {{{0, 0}}, false}}}));
}

TEST_F(SnapshotLoadingTest, an_untagged_leaf_that_says_something_else_is_not_untagged) {
  add(Vpws{.vlan = 5});
  for (const std::int32_t setting : {0, 2, 3}) {
    SCOPED_TRACE(setting);
    snapshot = {};
    platform.leaf(vpws_encap({}, "untagged"), scripted::enum_value(setting));
    load_vpws();
    EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, {{{5, 5}}, false}}}));
  }
}

// Only the whole prefix makes the list VPWS's, while the group's name decides where the encapsulation is read.
TEST_F(SnapshotLoadingTest, another_prefix_reads_the_vlan_as_vpls_does) {
  platform.entry("/internal/other-list", {text("G"), text("V"), u32(3), text("eth-1")}, 4);
  get_vpn_access(sock(), tctx(), "my vpws-group ", "/internal/other-list", snapshot);
  EXPECT_EQ(calls_of({"maapi_get_u_int32_elem", "maapi_exists"}),
            (Calls{"maapi_get_u_int32_elem /internal/int-sub-vpls-vpn-bd{G V 3}/int-vpls-bd-vlan",
                   "maapi_exists /internal/int-vpws-intf-encap{up G V 3 eth-1}/int-vpws-encap-untagged"}));
}

TEST_F(SnapshotLoadingTest, a_name_with_a_percent_sign_is_a_name) {
  add(Vpws{.group = "50%s", .vpn = "100%d", .vlan = 5, .untagged = true});
  load_vpws();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpws-group 50%s vpn 100%d", {{{0, 0}}, true}}}));
}

// The encapsulation's paths are put together beforehand, where a blank ends a key; the VLAN's keys are handed over one
// by one.
TEST_F(SnapshotLoadingTest, a_name_with_a_blank_has_a_vlan_but_no_encapsulation) {
  const Vpls a{.vpn = "dark red", .vlan = 5};
  platform.entry(kVplsAttachments, {text(a.group), text(a.vpn), u32(a.id), text(a.interface)});
  platform.entry("/internal/int-vpls-group{north}/int-vpls-vpn", {text(a.vpn), u32(a.id)}, 2);
  platform.entry("/internal/int-sub-vpls-vpn-bd", {text(a.group), text(a.vpn), u32(a.id)}, 3);
  platform.leaf(vlan_path(a), u32(5));
  load_vpls();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn dark red", {{{5, 5}}, false}}}));
}

TEST_F(SnapshotLoadingTest, an_encapsulations_path_is_cut_at_511_characters) {
  add(Vpws{.vpn = std::string(500, 'v'), .vlan = 5});
  load_vpws();
  const std::string whole = "/internal/int-vpws-intf-encap{west " + std::string(500, 'v');
  EXPECT_EQ(calls_of({"maapi_exists"}), (Calls{"maapi_exists " + whole.substr(0, 511)}));
}

TEST_F(SnapshotLoadingTest, ranges_that_went_between_the_count_and_the_fetch_are_not_recorded) {
  add(Vpws{.vlan = 5, .ranges = {{10, 20}, {30, 40}}});
  platform.count_as(vpws_encap({}, "dot1q-range"), 4);
  load_vpws();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, {{{5, 5}, {10, 20}, {30, 40}}, true}}}));
  EXPECT_EQ(calls_of({"maapi_get_objects"}), Calls{"maapi_get_objects " + vpws_encap({}, "dot1q-range") + " 4x2"});
}

TEST_F(SnapshotLoadingTest, when_all_ranges_went_the_vlan_is_recorded_once) {
  add(Vpws{.vlan = 5});
  platform.count_as(vpws_encap({}, "dot1q-range"), 1);
  load_vpws();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, {{{5, 5}}, false}}}));
}

// Identifiers are numbers without sign, and so they stand in the paths.
TEST_F(SnapshotLoadingTest, an_id_from_two_to_the_31_on_is_written_without_sign) {
  add_vpls({.id = 0x80000000, .vlan = 5, .untagged = true});
  add(Vpws{.id = 0xFFFFFFFF, .vlan = 6, .ranges = {{10, 20}}});
  load_vpls();
  load_vpws();
  EXPECT_EQ(recorded(),
            (std::map<std::string, Claims>{{kVplsRed, {{{0, 0}}, true}}, {kVpwsBlue, {{{6, 6}, {10, 20}}, true}}}));
  EXPECT_EQ(
      calls_of({"maapi_get_u_int32_elem", "maapi_exists"}),
      (Calls{
          "maapi_get_u_int32_elem /internal/int-sub-vpls-vpn-bd{north red 2147483648}/int-vpls-bd-vlan",
          "maapi_exists /internal/int-vpls-group{north}/int-vpls-vpn{red 2147483648}/int-vpls-bd/int-vpls-ac{eth-1}/int-vpls-encap/int-vpls-encap-untagged",
          "maapi_exists /internal/int-vpws-intf-encap{west blue 4294967295 eth-1}/int-vpws-encap-untagged"}));
}

// The word counts wherever it stands in the group's name: the encapsulation of such a VPLS group is looked for among
// the VPWS ones, where it is not found.
TEST_F(SnapshotLoadingTest, a_vpls_group_that_holds_the_other_familys_word_is_read_as_one) {
  EXPECT_EQ(get_vpn_access_encap(sock(), tctx(), "vpls-group my vpws-group ", "vpn red", 1, "eth-1", 5, snapshot), -1);
  const std::string entry = "/internal/int-vpws-intf-encap{my vpws-group  red 1 eth-1}";
  EXPECT_EQ(platform.calls(), (Calls{"maapi_exists " + entry + "/int-vpws-encap-untagged",
                                     "maapi_num_instances " + entry + "/int-vpws-encap-dot1q-range"}));
}

TEST_F(SnapshotLoadingTest, a_vpws_group_that_holds_the_other_familys_word_is_still_one) {
  EXPECT_EQ(get_vpn_access_encap(sock(), tctx(), "vpws-group my vpls-group ", "vpn blue", 7, "eth-1", 5, snapshot), -1);
  EXPECT_EQ(calls_of({"maapi_exists"}),
            Calls{"maapi_exists /internal/int-vpws-intf-encap{my vpls-group  blue 7 eth-1}/int-vpws-encap-untagged"});
}

struct EncapResultCase {
  const char *name;
  bool untagged;
  Ranges ranges;
  std::int32_t result;
  std::map<std::string, Claims> claims;
};

const std::vector<EncapResultCase> encap_result_cases{
    {"none: the caller records the VLAN", false, {}, -1, {}},
    {"untagged", true, {}, 0, {{kVpwsBlue, {{{0, 0}}, true}}}},
    {"a range", false, {{10, 20}}, 0, {{kVpwsBlue, {{{5, 5}, {10, 20}}, true}}}},
};

TEST_F(SnapshotLoadingTest, tells_whether_an_encapsulation_was_found) {
  for (const EncapResultCase &row : encap_result_cases) {
    SCOPED_TRACE(row.name);
    snapshot = {};
    const Vpws a{.vlan = 5, .untagged = row.untagged, .ranges = row.ranges};
    if (row.untagged) platform.leaf(vpws_encap(a, "untagged"), scripted::enum_value(1));
    if (!row.untagged) platform.leaf(vpws_encap(a, "untagged"), scripted::enum_value(2));
    for (const auto &[first, last] : row.ranges) {
      platform.entry(vpws_encap(a, "dot1q-range"), {u32(first), u32(last)});
    }
    EXPECT_EQ(get_vpn_access_encap(sock(), tctx(), "vpws-group west", "vpn blue", 7, "eth-1", 5, snapshot), row.result);
    EXPECT_EQ(recorded(), row.claims);
  }
}

struct FaultCase {
  const char *function;
  std::size_t nth;
  std::map<std::string, Claims> claims;
};

const Claims kWhole{{{0, 0}, {5, 5}, {10, 20}}, true};

// Of an attachment with a VLAN, untagged and a range, and a second one with a VLAN.
const std::vector<FaultCase> fault_cases{
    {"maapi_init_cursor", 1, {}},
    {"maapi_get_next", 1, {}},
    {"maapi_get_next", 2, {{kVplsRed, kWhole}}},
    {"maapi_get_next", 3, {{kVplsRed, kWhole}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    {"maapi_get_u_int32_elem",
     1,
     {{kVplsRed, {{{0, 0}, {10, 20}}, true}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    {"maapi_get_u_int32_elem", 2, {{kVplsRed, kWhole}, {"eth-2 vpls-group north vpn red", {{{0, 0}}, false}}}},
    {"maapi_exists",
     1,
     {{kVplsRed, {{{5, 5}, {10, 20}}, true}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    {"maapi_get_enum_value_elem",
     1,
     {{kVplsRed, {{{5, 5}, {10, 20}}, true}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    {"maapi_num_instances", 1, {{kVplsRed, {{{0, 0}}, true}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    // Ranges that cannot be fetched: the VLAN is recorded once more, which turns the untagged claim's flag off.
    {"maapi_init_cursor",
     2,
     {{kVplsRed, {{{0, 0}, {5, 5}}, false}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
    {"maapi_get_objects",
     1,
     {{kVplsRed, {{{0, 0}, {5, 5}}, false}}, {"eth-2 vpls-group north vpn red", {{{5, 5}}, false}}}},
};

TEST_F(SnapshotLoadingTest, a_failed_read_leaves_what_it_did_not_bring) {
  add_vpls({.interface = "eth-1", .vlan = 5, .untagged = true, .ranges = {{10, 20}}});
  add_vpls({.interface = "eth-2", .vlan = 5});
  for (const FaultCase &row : fault_cases) {
    SCOPED_TRACE(::testing::Message() << row.function << " fails at call " << row.nth);
    snapshot = {};
    fail_only(row.function, row.nth);
    EXPECT_EQ(load_vpls(), 0);
    EXPECT_EQ(recorded(), row.claims);
    EXPECT_EQ(platform.leaks(), Calls{});
    EXPECT_EQ(platform.errors(), Calls{});
  }
}

struct BrokenKeyCase {
  const char *group_prefix;
  Values keys;
  const char *assertion;
};

const std::vector<BrokenKeyCase> broken_key_cases{
    {"vpls-group ", {u32(1), text("red"), u32(1), text("eth-1")}, "(&mc.keys[0])->type == C_BUF"},
    {"vpls-group ", {text("north"), u32(1), u32(1), text("eth-1")}, "(&mc.keys[1])->type == C_BUF"},
    {"vpls-group ", {text("north"), text("red"), text("1"), text("eth-1")}, "(&mc.keys[2])->type == C_UINT32"},
    {"vpls-group ", {text("north"), text("red"), scripted::i32(1), text("eth-1")}, "(&mc.keys[2])->type == C_UINT32"},
    {"vpls-group ", {text("north"), text("red"), u32(1), u32(1)}, "(&mc.keys[3])->type == C_BUF"},
    {"vpws-group ", {u32(1), text("blue"), u32(7), text("eth-1"), u32(5)}, "(&mc.keys[0])->type == C_BUF"},
    {"vpws-group ", {text("west"), text("blue"), u32(7), text("eth-1"), text("5")}, "(&mc.keys[4])->type == C_UINT32"},
    {"vpws-group ", {text("west"), text("blue"), u32(7), u32(1), text("5")}, "(&mc.keys[3])->type == C_BUF"},
};

TEST_F(SnapshotLoadingTest, a_key_of_another_type_stops_the_process) {
  for (const BrokenKeyCase &row : broken_key_cases) {
    SCOPED_TRACE(row.assertion);
    const std::string list = "/internal/broken-list-" + std::to_string(row.keys.size());
    platform.list(list, row.keys.size(), {row.keys});
    EXPECT_BROKEN_MODEL(get_vpn_access(sock(), tctx(), row.group_prefix, list.c_str(), snapshot),
                        "config_validate_comn", row.assertion);
  }
}

TEST_F(SnapshotLoadingTest, the_same_keys_of_their_types_do_not) {
  platform.list("/internal/sound-list", 5, {{text("west"), text("blue"), u32(7), text("eth-1"), u32(5)}});
  EXPECT_EQ(get_vpn_access(sock(), tctx(), "vpws-group ", "/internal/sound-list", snapshot), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kVpwsBlue, {{{5, 5}}, false}}}));
}

TEST_F(SnapshotLoadingTest, a_range_value_of_another_type_stops_the_process) {
  add(Vpws{});
  platform.list(vpws_encap({}, "dot1q-range"), 2, {{u32(1), u32(2)}, {text("3"), u32(4)}});
  EXPECT_BROKEN_MODEL(load_vpws(), "config_validate_comn", "(&value[0])->type == C_UINT32");
  platform.list(vpws_encap({}, "dot1q-range"), 2, {{u32(1), u32(2)}, {u32(3), scripted::u16(4)}});
  EXPECT_BROKEN_MODEL(load_vpws(), "config_validate_comn", "(&value[1])->type == C_UINT32");
}

}  // namespace
