#include "confd_maapi.h"
#include "tests/host/served_element.h"

namespace {

using element::Enumeration;
using host_test::shown;
using host_test::tag;

/// Paths of the reported changes, as the agent prints them, after the operation.
using Changes = std::vector<std::string>;

const char *operation(confd_iter_op op) {
  switch (op) {
    case MOP_CREATED:
      return "created";
    case MOP_DELETED:
      return "deleted";
    case MOP_MODIFIED:
      return "modified";
    case MOP_VALUE_SET:
      return "set";
    default:
      return "?";
  }
}

struct Iteration {
  Changes changes;
  confd_iter_ret answer = ITER_RECURSE;
};

confd_iter_ret record(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv, confd_value_t *newv, void *state) {
  auto &iteration = *static_cast<Iteration *>(state);
  char path[512];
  confd_pp_kpath(path, sizeof path, kp);
  EXPECT_EQ(oldv, nullptr);
  iteration.changes.push_back(std::string(operation(op)) + ' ' + path + (newv == nullptr ? "" : " = " + shown(*newv)));
  return iteration.answer;
}

class AgentChanges : public host_test::ServedElement {
 protected:
  Changes changes(const char *path, confd_iter_ret answer = ITER_RECURSE) {
    Iteration iteration{{}, answer};
    EXPECT_EQ(maapi_keypath_diff_iterate(sock, thandle, record, 0, &iteration, "%s", path), CONFD_OK) << path;
    return iteration.changes;
  }
};

constexpr const char *kBridge = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain";

TEST_F(AgentChanges, of_the_whole_configuration_stand_in_schema_order) {
  running.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/bridge-mtu", 1500U);
  candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service");
  candidate.put("/base:config/service-port{7}/match/vlan/vlan-id/vid", std::uint16_t{5});
  serve();
  EXPECT_EQ(changes("/"), (Changes{"created /config/service-port{7}",
                                   "set /config/service-port{7}/match/vlan/vlan-id/vid = C_UINT16 5",
                                   "modified /mpls/l2vpn-config/l2vpn/vpls-group{G}",
                                   "modified /mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}",
                                   std::string("deleted ") + kBridge + "/bridge-mtu",
                                   std::string("created ") + kBridge + "/transparent-lan-service"}));
}

TEST_F(AgentChanges, below_a_created_entry_are_what_it_sets) {
  candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}/access-interface{I}/dot1q", std::uint16_t{5});
  candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}/access-interface{I}/encapsulation/untagged");
  serve();
  const std::string entry = "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}/access-interface{I}";
  EXPECT_EQ(changes(entry.c_str()), (Changes{"created " + entry, "set " + entry + "/dot1q = C_UINT16 5",
                                             "created " + entry + "/encapsulation/untagged"}));
  EXPECT_EQ(changes((entry + "/encapsulation").c_str()), Changes{"created " + entry + "/encapsulation/untagged"});
  EXPECT_EQ(changes((entry + "/name").c_str()), Changes{}) << "a key is no change of its own";
}

TEST_F(AgentChanges, below_a_deleted_entry_are_none) {
  running.put(std::string(kBridge) + "/dot1q", std::uint16_t{100});
  serve();
  EXPECT_EQ(changes("/mpls"), Changes{"deleted /mpls/l2vpn-config/l2vpn/vpls-group{G}"});
  EXPECT_EQ(changes(kBridge), Changes{});
}

TEST_F(AgentChanges, of_a_container_are_those_of_what_it_holds) {
  running.put(std::string(kBridge) + "/dot1q", std::uint16_t{100});
  candidate.put(std::string(kBridge) + "/dot1q", std::uint16_t{200});
  serve();
  EXPECT_EQ(changes(kBridge), Changes{std::string("set ") + kBridge + "/dot1q = C_UINT16 200"});
}

TEST_F(AgentChanges, of_derived_trees_are_reported_too) {
  running.put("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-bd-tls", Enumeration{2});
  candidate.put("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-bd-tls", Enumeration{1});
  serve();
  EXPECT_EQ(changes("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd"),
            Changes{"set /internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-bd-tls = C_ENUM_VALUE 1"});
}

TEST_F(AgentChanges, end_or_skip_as_the_caller_answers) {
  candidate.put("/internal/int-vpws-group{A}/int-vpws{V 1}");
  candidate.put("/internal/int-vpws-group{B}/int-vpws{V 1}");
  serve();
  EXPECT_EQ(changes("/internal/int-vpws-group", ITER_STOP), Changes{"created /internal/int-vpws-group{A}"});
  EXPECT_EQ(changes("/internal/int-vpws-group", ITER_CONTINUE),
            (Changes{"created /internal/int-vpws-group{A}", "created /internal/int-vpws-group{B}"}));
  EXPECT_EQ(changes("/internal/int-vpws-group").size(), 4U);
}

TEST_F(AgentChanges, a_wrong_path_is_refused_and_reports_nothing) {
  candidate.put("/internal/int-vpws-group{A}/int-vpws{V 1}");
  serve();
  const std::vector<std::pair<const char *, int>> rows{
      {"", CONFD_ERR_BADPATH},
      {"/internal/no-such-list", CONFD_ERR_BADPATH},
      {"/internal/int-vpws-group{A B}", CONFD_ERR_BADPATH},
      {"/internal/int-vpws-group{A}/int-vpws{V x}", CONFD_ERR_BADTYPE}};
  for (const auto &[path, reason] : rows) {
    Iteration iteration;
    confd_errno = 0;
    EXPECT_EQ(maapi_keypath_diff_iterate(sock, thandle, record, 0, &iteration, "%s", path), -1) << path;
    EXPECT_EQ(confd_errno, reason) << path;
    EXPECT_EQ(iteration.changes, Changes{});
  }
}

confd_iter_ret look_beyond(confd_hkeypath_t *kp, confd_iter_op, confd_value_t *, confd_value_t *, void *state) {
  for (int i = kp->len; i < MAXDEPTH; ++i) {
    if (kp->v[i][0].type != C_NOEXISTS) *static_cast<int *>(state) = i;
  }
  return ITER_STOP;
}

TEST_F(AgentChanges, beyond_a_key_paths_length_stands_nothing) {
  candidate.put("/internal/int-vpws-group{A}");
  serve();
  int beyond = -1;
  maapi_keypath_diff_iterate(sock, thandle, look_beyond, 0, &beyond, "/internal");
  EXPECT_EQ(beyond, -1);
}

}  // namespace
