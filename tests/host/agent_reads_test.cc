#include "confd_maapi.h"
#include "tests/host/served_element.h"

namespace {

using element::Enumeration;
using host::SeamFunction;
using host_test::shown;
using host_test::tag;

class AgentReads : public host_test::ServedElement {
 protected:
  void SetUp() override {
    candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service");
    candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/dot1q", std::uint16_t{100});
    candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{W}");
    candidate.put("/internal/int-sub-vpls-vpn-bd{G V 1}/int-vpls-bd-vlan", 100U);
    candidate.put("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-bd-tls", Enumeration{2});
    candidate.put("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac{I}");
    running.put("/internal/int-vpws-group{R}");
    serve();
  }

  int count(const char *path) { return maapi_num_instances(sock, thandle, "%s", path); }
  int exists(const char *path) { return maapi_exists(sock, thandle, "%s", path); }
};

TEST_F(AgentReads, count_the_entries_of_a_list) {
  EXPECT_EQ(count("/internal/int-vpls-group{G}/int-vpls-vpn"), 1);
  EXPECT_EQ(count("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac"), 1);
  EXPECT_EQ(count("/internal/int-vpls-group{G}/int-vpls-vpn{V 2}/int-vpls-bd/int-vpls-ac"), 0);
  EXPECT_EQ(count("/internal/int-vpws-group"), 0) << "the candidate is read, not the running configuration";
  EXPECT_EQ(count("/KZ-PWE3-MIB:KZ-PWE3-MIB/pwTable/pwEntry"), 0);
}

TEST_F(AgentReads, only_lists_have_entries_to_count) {
  for (const char *path : {"/internal", "/internal/int-vpls-group{G}", "/internal/int-vpls-group{G}/name", "/"}) {
    confd_errno = 0;
    EXPECT_EQ(count(path), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
  }
}

TEST_F(AgentReads, an_entry_or_leaf_exists_where_the_tree_has_it) {
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}"), 1);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{W}"), 0);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{H}/vpn{V}"), 0);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/dot1q"), 1);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/bridge-mtu"), 0);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service"), 1);
}

// In whatever order entries are asked for: on, back, again, past those that the list does not have.
TEST_F(AgentReads, an_entry_is_found_whichever_was_asked_for_before) {
  for (int number = 10; number < 60; number += 2) {
    candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{W}/vpn{" + std::to_string(number) + "}");
  }
  serve();
  for (int first = 9; first < 61; ++first) {
    for (int then = 9; then < 61; ++then) {
      for (const int number : {first, then}) {
        const bool is_there = number >= 10 && number < 60 && number % 2 == 0;
        EXPECT_EQ(maapi_exists(sock, thandle, "/mpls/l2vpn-config/l2vpn/vpws-group{W}/vpn{%d}", number),
                  is_there ? 1 : 0)
            << number << " after " << first;
      }
    }
  }
}

TEST_F(AgentReads, a_key_leaf_exists_with_its_entry) {
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/name"), 1);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{H}/name"), 0);
}

TEST_F(AgentReads, a_container_exists_with_what_holds_it) {
  EXPECT_EQ(exists("/"), 1);
  EXPECT_EQ(exists("/KZ-PWE3-MIB/pwTable"), 1);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/vfi"), 1) << "nothing is set in it";
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{W}/vfi"), 0);
  EXPECT_EQ(exists("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac{I}/int-vpls-encap"), 1);
  EXPECT_EQ(exists("/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac{J}/int-vpls-encap"), 0);
}

TEST_F(AgentReads, a_list_exists_with_its_first_entry) {
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpls-group"), 1);
  EXPECT_EQ(exists("/mpls/l2vpn-config/l2vpn/vpws-group{W}/vpn"), 0);
  EXPECT_EQ(exists("/internal/int-vpws-group"), 0);
}

TEST_F(AgentReads, a_key_leaf_has_the_entrys_key) {
  std::uint32_t id = 0;
  EXPECT_EQ(maapi_get_u_int32_elem(sock, thandle, &id, "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/id"), CONFD_OK);
  EXPECT_EQ(id, 1U);
  confd_value_t name{};
  EXPECT_EQ(maapi_get_elem(sock, thandle, &name, "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/name"), CONFD_OK);
  EXPECT_EQ(shown(name), "C_BUF V");
  confd_free_value(&name);
}

TEST_F(AgentReads, an_empty_leaf_is_read_as_its_tag) {
  confd_value_t value{};
  EXPECT_EQ(maapi_get_elem(sock, thandle, &value,
                           "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service"),
            CONFD_OK);
  EXPECT_EQ(shown(value), tag("transparent-lan-service"));
}

TEST_F(AgentReads, only_leafs_have_a_value) {
  confd_value_t value{};
  std::uint32_t number = 77;
  for (const char *path : {"/internal", "/internal/int-vpls-group", "/internal/int-vpls-group{G}"}) {
    confd_errno = 0;
    EXPECT_EQ(maapi_get_elem(sock, thandle, &value, "%s", path), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
    EXPECT_EQ(maapi_get_u_int32_elem(sock, thandle, &number, "%s", path), -1) << path;
  }
  EXPECT_EQ(number, 77U);
}

TEST_F(AgentReads, a_value_of_another_type_is_refused) {
  std::uint32_t number = 77;
  EXPECT_EQ(maapi_get_u_int32_elem(sock, thandle, &number,
                                   "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/dot1q"),
            -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADTYPE) << "an operator's VLAN has 16 bits";
  EXPECT_EQ(maapi_get_u_int32_elem(sock, thandle, &number, "/internal/int-sub-vpls-vpn-bd{G V 1}/int-vpls-bd-vlan"), 0);
  EXPECT_EQ(number, 100U);
}

TEST_F(AgentReads, objects_are_entries_and_containers) {
  confd_value_t values[4];
  EXPECT_EQ(maapi_get_object(sock, thandle, values, 0, "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd"), 4);
  EXPECT_EQ(maapi_get_object(sock, thandle, values, 0, "/internal/int-sub-vpls-vpn-bd{G V 1}"), 4);
  for (const char *path : {"/internal/int-sub-vpls-vpn-bd", "/internal/int-sub-vpls-vpn-bd{G V 1}/int-vpls-bd-vlan"}) {
    confd_errno = 0;
    EXPECT_EQ(maapi_get_object(sock, thandle, values, 4, "%s", path), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
  }
}

TEST_F(AgentReads, a_container_with_nothing_set_is_an_object_all_the_same) {
  confd_value_t values[2];
  EXPECT_EQ(maapi_get_object(sock, thandle, values, 2,
                             "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac{I}/int-vpls-encap"),
            2);
  EXPECT_EQ(shown(values[0]), "C_NOEXISTS");
  EXPECT_EQ(shown(values[1]), "C_NOEXISTS");
}

TEST_F(AgentReads, another_transaction_is_not_known) {
  const auto refused = [](int result) {
    const bool is_refused = result == -1 && confd_errno == CONFD_ERR_NOSESSION;
    confd_errno = 0;
    return is_refused;
  };
  EXPECT_TRUE(refused(maapi_exists(sock + 1, thandle, "/internal")));
  EXPECT_TRUE(refused(maapi_exists(sock, thandle + 1, "/internal")));
  EXPECT_FALSE(refused(maapi_exists(sock, thandle, "/internal")));
  session.serve(nullptr);
  EXPECT_TRUE(refused(maapi_exists(sock, thandle, "/internal")));
  EXPECT_TRUE(refused(maapi_num_instances(sock, thandle, "/internal/int-vpws-group")));
}

TEST_F(AgentReads, a_wrong_path_is_told_from_a_wrong_key) {
  EXPECT_EQ(exists("/base:mpls"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH);
  EXPECT_EQ(exists("/base:config/service-port{seven}"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADTYPE);
}

TEST(AgentWithoutElement, every_read_fails) {
  confd_errno = 0;
  EXPECT_EQ(maapi_exists(7, 42, "/internal"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
}

}  // namespace
