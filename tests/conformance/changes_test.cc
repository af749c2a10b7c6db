#include <cstring>

#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

constexpr std::uint32_t kPwIdTag = 0x1b61cee1;
constexpr const char *kVpns = "/mpls/l2vpn-config/l2vpn/vpws-group{north}/vpn";
constexpr const char *kNeighbors = "/mpls/l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/neighbor";
constexpr const char *kInterfaces = "/mpls/l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/access-interface";

/// What one call of the iterator was given. `last` is the key path's last element: the keys of an entry, or one tag.
struct Reported {
  confd_iter_op op;
  Values last;
  Value new_value;
  bool has_new_value;
  bool has_old_value;
  int length;

  bool operator==(const Reported &) const = default;
};

Reported entry(confd_iter_op op, const Values &keys, int length) { return {op, keys, absent(), false, false, length}; }

Reported pw_id(const Value &new_value, int length) {
  return {MOP_VALUE_SET, {scripted::tag(kPwIdTag)}, new_value, true, false, length};
}

void PrintTo(const Reported &reported, std::ostream *out) {
  *out << "op " << reported.op << " at";
  for (const Value &value : reported.last) *out << ' ' << scripted::to_text(value) << '(' << value.type << ')';
  *out << (reported.has_new_value ? " new " + scripted::to_text(reported.new_value) : "") << ", "
       << (reported.has_old_value ? "an old value, " : "") << reported.length << " elements";
}

struct Iteration {
  std::vector<Reported> reported;
  /// What the iterator answers to a change with this operation; to others it says to recurse.
  confd_iter_op special = MOP_ATTR_SET;
  confd_iter_ret answer = ITER_RECURSE;
};

confd_iter_ret record(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv, confd_value_t *newv, void *state) {
  auto &iteration = *static_cast<Iteration *>(state);
  Values last;
  for (int k = 0; k < MAXKEYLEN && kp->v[0][k].type != C_NOEXISTS; ++k) {
    last.push_back(scripted::from_platform(kp->v[0][k]));
    if (last.back().type == C_XMLTAG) break;
  }
  iteration.reported.push_back({op, last, newv != nullptr ? scripted::from_platform(*newv) : absent(), newv != nullptr,
                                oldv != nullptr, kp->len});
  return op == iteration.special ? iteration.answer : ITER_RECURSE;
}

class ChangesTest : public ConformanceTest {
 protected:
  std::vector<Reported> changes_at(const std::string &path, Iteration iteration = {}) {
    EXPECT_EQ(maapi_keypath_diff_iterate(sock(), handle(), record, 0, &iteration, "%s", path.c_str()), CONFD_OK);
    return iteration.reported;
  }

  /// North's VPN east: one neighbour new, one with another pw-id, one gone.
  void change_three_neighbors() {
    stage->modify_entry(kVpwsGroups, {text("north")});
    stage->modify_entry(kVpns, {text("east")});
    stage->delete_entry(kNeighbors, {ipv4("10.0.0.1")}, {{"pw-id", u32(10)}});
    stage->modify_entry(kNeighbors, {ipv4("10.0.0.2")});
    stage->set_leaf("/mpls/l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/neighbor{10.0.0.2}/pw-id", u32(20), u32(21));
    stage->create_entry(kNeighbors, {ipv4("10.0.0.3")}, {{"pw-id", u32(30)}});
    stage->open();
  }

  // Elements of a key path: a name is one, an entry's keys are another.
  static constexpr int kGroupDepth = 5;
  static constexpr int kVpnDepth = 7;
  static constexpr int kNeighborDepth = 9;

  const Reported group = entry(MOP_MODIFIED, {text("north")}, kGroupDepth);
  const Reported vpn = entry(MOP_MODIFIED, {text("east")}, kVpnDepth);
  const Reported gone = entry(MOP_DELETED, {ipv4("10.0.0.1")}, kNeighborDepth);
  const Reported changed = entry(MOP_MODIFIED, {ipv4("10.0.0.2")}, kNeighborDepth);
  const Reported its_new_pw_id = pw_id(u32(21), kNeighborDepth + 1);
  const Reported added = entry(MOP_CREATED, {ipv4("10.0.0.3")}, kNeighborDepth);
  const Reported added_pw_id = pw_id(u32(30), kNeighborDepth + 1);
};

TEST_F(ChangesTest, are_reported_from_the_top_down_in_schema_order) {
  change_three_neighbors();
  EXPECT_EQ(changes_at("/mpls/l2vpn-config/l2vpn"),
            (std::vector<Reported>{group, vpn, gone, changed, its_new_pw_id, added, added_pw_id}));
}

TEST_F(ChangesTest, are_reported_at_or_below_the_path) {
  change_three_neighbors();
  const std::string neighbors = kNeighbors;
  EXPECT_EQ(changes_at(neighbors), (std::vector<Reported>{gone, changed, its_new_pw_id, added, added_pw_id}));
  EXPECT_EQ(changes_at(neighbors + "{10.0.0.2}"), (std::vector<Reported>{changed, its_new_pw_id}));
  EXPECT_EQ(changes_at(neighbors + "{10.0.0.2}/pw-id"), (std::vector<Reported>{its_new_pw_id}));
  EXPECT_EQ(changes_at(neighbors + "{10.0.0.3}/pw-id"), (std::vector<Reported>{added_pw_id}));
}

TEST_F(ChangesTest, of_what_was_not_touched_or_is_not_there_are_none) {
  stage->put(kVpwsGroups, {text("south")});
  change_three_neighbors();
  for (const char *path : {"/mpls/l2vpn-config/l2vpn/vpws-group{south}", "/mpls/l2vpn-config/l2vpn/vpws-group{nowhere}",
                           "/mpls/l2vpn-config/l2vpn/vpws-group{nowhere}/vpn{east}/neighbor{10.0.0.2}/pw-id",
                           "/internal/int-vpws-tunnel-idx"}) {
    EXPECT_EQ(changes_at(path), std::vector<Reported>{}) << path;
  }
}

TEST_F(ChangesTest, below_a_deleted_entry_are_not_reported) {
  change_three_neighbors();
  const std::string neighbors = kNeighbors;
  EXPECT_EQ(changes_at(neighbors + "{10.0.0.1}"), std::vector<Reported>{gone});
  EXPECT_EQ(changes_at(neighbors + "{10.0.0.1}/pw-id"), std::vector<Reported>{});
}

TEST_F(ChangesTest, the_iterator_may_stop) {
  change_three_neighbors();
  EXPECT_EQ(changes_at("/mpls/l2vpn-config/l2vpn", {{}, MOP_VALUE_SET, ITER_STOP}),
            (std::vector<Reported>{group, vpn, gone, changed, its_new_pw_id}));
}

TEST_F(ChangesTest, the_iterator_may_skip_what_is_below) {
  change_three_neighbors();
  EXPECT_EQ(changes_at(kNeighbors, {{}, MOP_CREATED, ITER_CONTINUE}),
            (std::vector<Reported>{gone, changed, its_new_pw_id, added}));
  EXPECT_EQ(changes_at(kNeighbors, {{}, MOP_MODIFIED, ITER_CONTINUE}),
            (std::vector<Reported>{gone, changed, added, added_pw_id}));
}

TEST_F(ChangesTest, an_optional_leaf_may_be_removed) {
  const char *vlan = "/internal/int-sub-vpls-vpn-bd{south red 4}/int-vpls-bd-vlan";
  stage->modify_entry("/internal/int-sub-vpls-vpn-bd", {text("south"), text("red"), u32(4)});
  stage->delete_leaf(vlan, u32(100));
  stage->open();
  const std::vector<Reported> reported = changes_at(vlan);
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_EQ(reported[0].op, MOP_DELETED);
  EXPECT_FALSE(reported[0].has_new_value);
}

TEST_F(ChangesTest, a_leaf_may_get_its_first_value) {
  const char *vlan = "/internal/int-sub-vpls-vpn-bd{south red 4}/int-vpls-bd-vlan";
  stage->modify_entry("/internal/int-sub-vpls-vpn-bd", {text("south"), text("red"), u32(4)});
  stage->set_leaf(vlan, absent(), u32(100));
  stage->open();
  const std::vector<Reported> reported = changes_at(vlan);
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_EQ(reported[0].op, MOP_VALUE_SET);
  EXPECT_EQ(reported[0].new_value, u32(100));
}

TEST_F(ChangesTest, an_empty_leaf_is_created) {
  const char *any = "/base:config/service-port{7}/match/vlan/vlan-id/any";
  stage->modify_entry("/base:config/service-port", {u32(7)});
  stage->create_empty_leaf(any);
  stage->open();
  const std::vector<Reported> reported = changes_at(any);
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_EQ(reported[0].op, MOP_CREATED);
}

TEST_F(ChangesTest, the_keys_of_a_created_entry_are_none) {
  stage->modify_entry(kVpwsGroups, {text("north")});
  stage->modify_entry(kVpns, {text("east")});
  stage->create_entry(kInterfaces, {text("gigabit-1")}, {});
  stage->open();
  EXPECT_EQ(changes_at(kInterfaces), std::vector<Reported>{entry(MOP_CREATED, {text("gigabit-1")}, kNeighborDepth)});
}

TEST_F(ChangesTest, an_entry_of_several_keys_has_them_in_one_element) {
  stage->create_entry(kMembers, {u32(1), i32(100), i32(1001)}, {});
  stage->open();
  EXPECT_EQ(changes_at(std::string(kMembers) + "{1 100 1001}"),
            std::vector<Reported>{entry(MOP_CREATED, {u32(1), i32(100), i32(1001)}, 4)});
}

TEST_F(ChangesTest, below_a_name_with_a_percent_sign_are_found) {
  stage->create_entry("/mpls/l2vpn-config/l2vpn/vpws-group", {text("%n")}, {});
  stage->open();
  Iteration iteration;
  maapi_keypath_diff_iterate(sock(), handle(), record, 0, &iteration, "/mpls/l2vpn-config/l2vpn/vpws-group{%%n}");
  EXPECT_EQ(iteration.reported, std::vector<Reported>{entry(MOP_CREATED, {text("%n")}, kGroupDepth)});
}

confd_iter_ret print_path(confd_hkeypath_t *kp, confd_iter_op, confd_value_t *, confd_value_t *, void *state) {
  char text[512];
  const int length = confd_pp_kpath(text, sizeof text, kp);
  EXPECT_EQ(length, static_cast<int>(std::strlen(text)));
  char cut[6];
  EXPECT_EQ(confd_pp_kpath(cut, sizeof cut, kp), length) << "the whole length, though it is cut";
  EXPECT_EQ(std::string(cut), std::string(text).substr(0, 5));
  *static_cast<std::string *>(state) = text;
  return ITER_RECURSE;
}

TEST_F(ChangesTest, a_key_path_can_be_printed) {
  change_three_neighbors();
  std::string printed;
  maapi_keypath_diff_iterate(sock(), handle(), print_path, 0, &printed, "%s{%s}/pw-id", kNeighbors, "10.0.0.2");
  EXPECT_TRUE(printed.ends_with("vpws-group{north}/vpn{east}/neighbor{10.0.0.2}/pw-id")) << printed;
}

TEST_F(ChangesTest, the_path_is_a_format) {
  change_three_neighbors();
  Iteration iteration;
  maapi_keypath_diff_iterate(sock(), handle(), record, 0, &iteration, "%s{%s}/pw-id", kNeighbors, "10.0.0.2");
  EXPECT_EQ(iteration.reported, std::vector<Reported>{its_new_pw_id});
}

}  // namespace
}  // namespace conformance
