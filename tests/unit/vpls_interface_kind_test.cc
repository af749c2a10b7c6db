#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"

namespace {

using scripted::tag;
using scripted::text;
using scripted::u32;
using scripted::Value;
using scripted::Values;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char *kList = "/internal/int-sub-vpls-vpn-ac";
constexpr const char *kMixed = "Cannot configure access interfaces service-port and ethernet in the same VPN";
constexpr const char *kNeedsTls = "To use a service-port as access interface, transparent-lan-service must be enabled";

/// An entry of the access-interface list.
struct Attachment {
  std::string group;
  std::string vpn;
  std::string interface;
};

/// The path of the name leaf of an access interface, elements from its end.
std::vector<Values> elements_of(const Attachment &ac) {
  return {{tag(1)}, {text(ac.interface)}, {tag(2)}, {tag(3)}, {text(ac.vpn)}, {tag(4)}, {text(ac.group)}, {tag(5)}};
}

class VplsInterfaceKindTest : public scripted::PlatformTest {
 protected:
  /// Sorted as the list is, by group, VPN and interface: one id a VPN would not change that.
  void configure(const std::vector<Attachment> &attachments) {
    std::vector<Values> rows;
    for (const Attachment &ac : attachments) rows.push_back({text(ac.group), text(ac.vpn), u32(1), text(ac.interface)});
    platform.list(kList, 4, rows);
  }

  std::int32_t type_verdict(const std::vector<Values> &elements) {
    scripted::KeyPath key_path(elements);
    return config_validate_vpls_access_interface_type(platform.socket(), &platform.context(), key_path.get());
  }
  std::int32_t type_verdict(const Attachment &ac) { return type_verdict(elements_of(ac)); }

  std::int32_t config_verdict(const std::vector<Values> &elements) {
    scripted::KeyPath key_path(elements);
    return config_validate_vpls_service_port_config(platform.socket(), &platform.context(), key_path.get());
  }
  std::int32_t config_verdict(const Attachment &ac) { return config_verdict(elements_of(ac)); }
};

struct KindCase {
  const char *name;
  std::vector<Attachment> configured;
  Attachment validated;
  bool is_accepted;
};

const std::vector<KindCase> kind_cases{
    {"alone", {{"G", "V", "service-1"}}, {"G", "V", "service-1"}, true},
    {"in no list", {}, {"G", "V", "service-1"}, true},
    {"service port beside ethernet", {{"G", "V", "eth-1-1"}, {"G", "V", "service-1"}}, {"G", "V", "service-1"}, false},
    {"ethernet beside service port", {{"G", "V", "eth-1-1"}, {"G", "V", "service-1"}}, {"G", "V", "eth-1-1"}, false},
    {"two service ports", {{"G", "V", "service-1"}, {"G", "V", "service-2"}}, {"G", "V", "service-2"}, true},
    {"two ethernets", {{"G", "V", "eth-1-1"}, {"G", "V", "eth-1-2"}}, {"G", "V", "eth-1-2"}, true},
    {"six characters of service are an ethernet",
     {{"G", "V", "eth-1-1"}, {"G", "V", "servic"}},
     {"G", "V", "servic"},
     true},
    {"seven are a service port", {{"G", "V", "eth-1-1"}, {"G", "V", "service"}}, {"G", "V", "service"}, false},
    {"service further on in the name is an ethernet",
     {{"G", "V", "eth-service"}, {"G", "V", "eth-1-1"}},
     {"G", "V", "eth-service"},
     true},
    {"only the first other interface is compared: the same kind",
     {{"G", "V", "eth-1-1"}, {"G", "V", "eth-1-2"}, {"G", "V", "service-1"}},
     {"G", "V", "eth-1-2"},
     true},
    {"only the first other interface is compared: the other kind",
     {{"G", "V", "eth-1-1"}, {"G", "V", "service-1"}, {"G", "V", "service-2"}},
     {"G", "V", "service-2"},
     false},
    {"another VPN stands first in the list",
     {{"G", "U", "eth-1-9"}, {"G", "V", "eth-1-1"}, {"G", "V", "service-1"}},
     {"G", "V", "service-1"},
     true},
    {"another group stands first in the list",
     {{"F", "V", "eth-1-9"}, {"G", "V", "eth-1-1"}, {"G", "V", "service-1"}},
     {"G", "V", "service-1"},
     true},
    {"the walk ends at the next VPN", {{"G", "V", "service-1"}, {"G", "W", "eth-1-1"}}, {"G", "V", "service-1"}, true},
    {"the walk ends at the next group",
     {{"G", "V", "service-1"}, {"H", "V", "eth-1-1"}},
     {"G", "V", "service-1"},
     true},
    {"a longer group name matches", {{"G10", "V", "eth-1-1"}}, {"G1", "V", "service-1"}, false},
    {"a longer VPN name matches", {{"G", "V10", "eth-1-1"}}, {"G", "V1", "service-1"}, false},
    {"a shorter group name does not", {{"G", "V", "eth-1-1"}}, {"G1", "V", "service-1"}, true},
    {"a shorter VPN name does not", {{"G", "V", "eth-1-1"}}, {"G", "V1", "service-1"}, true},
};

TEST_F(VplsInterfaceKindTest, one_vpn_has_service_ports_or_ethernets) {
  for (const KindCase &row : kind_cases) {
    SCOPED_TRACE(row.name);
    configure(row.configured);
    const std::size_t messages_before = platform.errors().size();
    EXPECT_EQ(type_verdict(row.validated), row.is_accepted ? 0 : -1);
    EXPECT_EQ(platform.errors().size(), messages_before + (row.is_accepted ? 0 : 1));
    if (!row.is_accepted) {
      EXPECT_EQ(platform.error(), kMixed);
    }
  }
}

TEST_F(VplsInterfaceKindTest, walks_the_list_to_the_first_other_interface_only) {
  configure({{"G", "V", "service-1"}, {"G", "V", "service-2"}, {"G", "V", "service-3"}});
  EXPECT_EQ(type_verdict({"G", "V", "service-1"}), 0);
  EXPECT_EQ(
      platform.calls(),
      (Calls{"maapi_init_cursor /internal/int-sub-vpls-vpn-ac", "maapi_get_next /internal/int-sub-vpls-vpn-ac",
             "maapi_get_next /internal/int-sub-vpls-vpn-ac", "maapi_destroy_cursor /internal/int-sub-vpls-vpn-ac"}));
}

TEST_F(VplsInterfaceKindTest, sets_the_message_before_the_cursor_is_destroyed) {
  configure({{"G", "V", "eth-1-1"}});
  EXPECT_EQ(type_verdict({"G", "V", "service-1"}), -1);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor /internal/int-sub-vpls-vpn-ac", "maapi_get_next /internal/int-sub-vpls-vpn-ac",
                   std::string("confd_trans_seterr ") + kMixed, "maapi_destroy_cursor /internal/int-sub-vpls-vpn-ac"}));
}

TEST_F(VplsInterfaceKindTest, a_walk_that_cannot_be_read_accepts) {
  configure({{"G", "V", "eth-1-1"}, {"G", "V", "service-1"}});
  for (const char *function : {"maapi_init_cursor", "maapi_get_next"}) {
    SCOPED_TRACE(function);
    platform.forget_calls();
    platform.fail(function, 1);
    EXPECT_EQ(type_verdict({"G", "V", "service-1"}), 0);
  }
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_F(VplsInterfaceKindTest, a_list_key_of_another_type_stops_the_process) {
  const std::vector<std::pair<Values, const char *>> rows{
      {{u32(1), u32(1), u32(1), u32(1)}, "(&mc.keys[0])->type == C_BUF"},
      {{text("G"), u32(1), u32(1), u32(1)}, "(&mc.keys[1])->type == C_BUF"},
      {{text("G"), text("V"), u32(1), u32(1)}, "(&mc.keys[3])->type == C_BUF"},
  };
  for (const auto &[keys, assertion] : rows) {
    SCOPED_TRACE(assertion);
    platform.list(kList, 4, {keys});
    EXPECT_BROKEN_MODEL(type_verdict({"G", "V", "service-1"}), "config_validate_vpls", assertion);
  }
}

TEST_F(VplsInterfaceKindTest, a_list_key_is_looked_at_only_when_the_ones_before_it_match) {
  platform.list(kList, 4, {{text("F"), u32(1), u32(1), u32(1)}});
  EXPECT_EQ(type_verdict({"G", "V", "service-1"}), 0);
  platform.list(kList, 4, {{text("G"), text("U"), u32(1), u32(1)}});
  EXPECT_EQ(type_verdict({"G", "V", "service-1"}), 0);
}

TEST_F(VplsInterfaceKindTest, a_service_port_needs_transparent_lan_service) {
  EXPECT_EQ(config_verdict({"G", "V", "service-1"}), -1);
  EXPECT_EQ(platform.errors(), Texts{kNeedsTls});

  platform.leaf("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service");
  EXPECT_EQ(config_verdict({"G", "V", "service-1"}), 0);
  EXPECT_EQ(config_verdict({"G", "W", "service-1"}), -1) << "it is another VPN's";
  EXPECT_EQ(config_verdict({"H", "V", "service-1"}), -1) << "it is another group's";
}

TEST_F(VplsInterfaceKindTest, an_ethernet_needs_none) {
  for (const char *interface : {"eth-1-1", "servic", "eth-service", ""}) {
    SCOPED_TRACE(interface);
    EXPECT_EQ(config_verdict({"G", "V", interface}), 0);
  }
  EXPECT_EQ(platform.calls(), Calls{}) << "and nothing is read";
}

TEST_F(VplsInterfaceKindTest, a_failed_read_lets_the_service_port_pass) {
  platform.fail("maapi_exists", 1);
  EXPECT_EQ(config_verdict({"G", "V", "service-1"}), 0);
  EXPECT_EQ(platform.errors(), Texts{});
  EXPECT_EQ(platform.calls(),
            Calls{"maapi_exists /mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/transparent-lan-service"});
}

// The keys go into the path as they are: a name with a blank makes a path that the agent cannot read.
TEST_F(VplsInterfaceKindTest, a_name_with_a_blank_is_a_failed_read) {
  platform.leaf("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/bridge-mtu", u32(1500));
  EXPECT_EQ(config_verdict({"G", "V W", "service-1"}), 0);
  EXPECT_EQ(platform.calls(),
            Calls{"maapi_exists "
                  "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V W}/bridge-domain/transparent-lan-service"});
}

TEST_F(VplsInterfaceKindTest, a_name_with_a_percent_sign_is_taken_as_it_is) {
  EXPECT_EQ(config_verdict({"G", "100%s", "service-1"}), -1);
  EXPECT_EQ(platform.calls()[0],
            "maapi_exists /mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{100%s}/bridge-domain/transparent-lan-service");
}

/// The path with its tags put out, save perhaps one.
std::vector<Values> without_tags(const Attachment &ac) {
  std::vector<Values> elements = elements_of(ac);
  for (Values &element : elements) {
    if (element[0].type == C_XMLTAG) element[0] = u32(0);
  }
  return elements;
}

TEST_F(VplsInterfaceKindTest, a_path_without_a_tag_is_rejected) {
  const std::vector<Values> elements = without_tags({"G", "V", "service-1"});
  EXPECT_EQ(type_verdict(elements), -1);
  EXPECT_EQ(config_verdict(elements), -1);
  EXPECT_EQ(platform.errors(),
            (Texts{"Cannot get information of interface service-1", "Cannot get information of interface service-1"}));
  EXPECT_EQ(platform.count("maapi_init_cursor") + platform.count("maapi_exists"), 0U) << "nothing is read for it";
}

TEST_F(VplsInterfaceKindTest, one_tag_anywhere_in_the_path_is_enough) {
  for (const std::size_t element : {0U, 2U, 7U, 24U}) {
    SCOPED_TRACE(element);
    std::vector<Values> elements = without_tags({"G", "V", "eth-1-1"});
    elements.resize(25, {u32(0)});
    elements[element] = {tag(element == 7 ? 0 : 0x4ed9d764)};
    EXPECT_EQ(type_verdict(elements), 0);
    EXPECT_EQ(config_verdict(elements), 0);
  }
}

TEST_F(VplsInterfaceKindTest, a_tag_beyond_the_paths_length_counts) {
  scripted::KeyPath key_path(without_tags({"G", "V", "eth-1-1"}));
  key_path.get()->v[24][0] = scripted::borrowed(tag(1));
  EXPECT_EQ(config_validate_vpls_access_interface_type(platform.socket(), &platform.context(), key_path.get()), 0);
}

TEST_F(VplsInterfaceKindTest, a_tag_is_the_first_value_of_an_element) {
  std::vector<Values> elements = without_tags({"G", "V", "eth-1-1"});
  elements[3] = {u32(0), tag(1)};
  EXPECT_EQ(config_verdict(elements), -1);
}

TEST_F(VplsInterfaceKindTest, a_path_key_of_another_type_stops_the_process_even_without_a_tag) {
  const std::vector<std::pair<std::size_t, const char *>> keys{
      {1, "(&kp->v[1][0])->type == C_BUF"}, {4, "(&kp->v[4][0])->type == C_BUF"}, {6, "(&kp->v[6][0])->type == C_BUF"}};
  for (std::size_t first_wrong = 0; first_wrong < keys.size(); ++first_wrong) {
    std::vector<Values> elements = without_tags({"G", "V", "eth-1-1"});
    for (std::size_t i = first_wrong; i < keys.size(); ++i) elements[keys[i].first] = {u32(1)};
    SCOPED_TRACE(keys[first_wrong].second);
    EXPECT_BROKEN_MODEL(type_verdict(elements), "config_validate_vpls", keys[first_wrong].second);
    EXPECT_BROKEN_MODEL(config_verdict(elements), "config_validate_vpls", keys[first_wrong].second);
  }
}

}  // namespace
