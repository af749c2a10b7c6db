#include "element/input/configuration.h"

#include "configuration_text.h"
#include "print.h"

namespace {

Lines lines_of(const std::string &text) {
  return print(element::parse_configuration(test_schema(), text, "candidate"));
}

struct Subtree {
  const char *name;
  std::string xml;
  std::string json;
  Lines lines;
};

void expect_same_tree(const std::vector<Subtree> &rows) {
  for (const Subtree &row : rows) {
    EXPECT_EQ(lines_of(row.xml), row.lines) << row.name;
    EXPECT_EQ(lines_of(row.json), row.lines) << row.name;
  }
}

TEST(Configuration, base_subtrees_in_xml_and_json) {
  expect_same_tree({
      {"service ports by VLAN, any and neither",
       base_xml("<service-port><number>10</number><match><vlan><vlan-id><any/></vlan-id></vlan></match></service-port>"
                "<service-port><number>9</number><match><vlan><vlan-id><vid>4094</vid></vlan-id></vlan></match>"
                "</service-port><service-port><number>11</number></service-port>"),
       base_json(R"("service-port": [{"number": 10, "match": {"vlan": {"vlan-id": {"any": [null]}}}},
                    {"number": 9, "match": {"vlan": {"vlan-id": {"vid": 4094}}}}, {"number": 11}])"),
       {"/config/service-port{9}", "/config/service-port{9}/match/vlan/vlan-id/vid = 4094", "/config/service-port{10}",
        "/config/service-port{10}/match/vlan/vlan-id/any", "/config/service-port{11}"}},
      {"static members of VLANs",
       base_xml("<vlan><id>100</id><interface><name>b</name></interface><interface><name>a</name></interface></vlan>"
                "<vlan><id>20</id></vlan>"),
       base_json(R"("vlan": [{"id": 100, "interface": [{"name": "b"}, {"name": "a"}]}, {"id": 20}])"),
       {"/config/vlan{20}", "/config/vlan{100}", "/config/vlan{100}/interface{a}", "/config/vlan{100}/interface{b}"}},
      {"layer-3 interfaces",
       base_xml("<l3-interface><name>uplink 2</name><vlan>1</vlan></l3-interface>"
                "<l3-interface><name>uplink 1</name><vlan>4094</vlan></l3-interface>"),
       base_json(R"("l3-interface": [{"name": "uplink 2", "vlan": 1}, {"vlan": 4094, "name": "uplink 1"}])"),
       {"/config/l3-interface{\"uplink 1\"}", "/config/l3-interface{\"uplink 1\"}/vlan = 4094",
        "/config/l3-interface{\"uplink 2\"}", "/config/l3-interface{\"uplink 2\"}/vlan = 1"}},
      {"multicast snooping",
       base_xml("<igmp-snooping><instance>2147483647</instance><interface><name>a</name></interface></igmp-snooping>"
                "<igmp-snooping><instance>1</instance></igmp-snooping>"),
       base_json(R"("igmp-snooping": [{"instance": 2147483647, "interface": [{"name": "a"}]}, {"instance": 1}])"),
       {"/config/igmp-snooping{1}", "/config/igmp-snooping{2147483647}",
        "/config/igmp-snooping{2147483647}/interface{a}"}},
  });
}

TEST(Configuration, mpls_subtrees_in_xml_and_json) {
  expect_same_tree({
      {"LDP uplinks",
       "<mpls xmlns=\"urn:element:mpls\"><ldp xmlns=\"urn:element:ldp\"><interface><name>b</name></interface>"
       "<interface><name>a</name></interface></ldp></mpls>",
       R"({"mpls:mpls": {"ldp:ldp": {"interface": [{"name": "b"}, {"name": "a"}]}}})",
       {"/mpls/ldp/interface{a}", "/mpls/ldp/interface{b}"}},
      {"VPWS pseudowires",
       l2vpn_xml("<vpws-group><name>g</name><vpn><name>v</name>"
                 "<neighbor><address>10.0.0.1</address><pw-id>4294967295</pw-id></neighbor>"
                 "<neighbor><address>9.0.0.1</address><pw-id>0</pw-id></neighbor>"
                 "<backup-neighbor><address>10.0.0.2</address><pw-id>2</pw-id></backup-neighbor></vpn></vpws-group>"),
       l2vpn_json(R"("vpws-group": [{"name": "g", "vpn": [{"name": "v",
                     "neighbor": [{"address": "10.0.0.1", "pw-id": 4294967295}, {"address": "9.0.0.1", "pw-id": 0}],
                     "backup-neighbor": [{"address": "10.0.0.2", "pw-id": 2}]}]}])"),
       {"/mpls/l2vpn-config/l2vpn/vpws-group{g}", "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/neighbor{9.0.0.1}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/neighbor{9.0.0.1}/pw-id = 0",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/neighbor{10.0.0.1}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/neighbor{10.0.0.1}/pw-id = 4294967295",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/backup-neighbor{10.0.0.2}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/backup-neighbor{10.0.0.2}/pw-id = 2"}},
      {"VPWS access interfaces",
       l2vpn_xml("<vpws-group><name>g</name><vpn><name>v</name>"
                 "<access-interface><name>p2</name><dot1q>100</dot1q><encapsulation><untagged/></encapsulation>"
                 "</access-interface><access-interface><name>p1</name></access-interface></vpn></vpws-group>"),
       l2vpn_json(R"("vpws-group": [{"name": "g", "vpn": [{"name": "v", "access-interface": [
                     {"name": "p2", "dot1q": 100, "encapsulation": {"untagged": [null]}}, {"name": "p1"}]}]}])"),
       {"/mpls/l2vpn-config/l2vpn/vpws-group{g}", "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/access-interface{p1}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/access-interface{p2}",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/access-interface{p2}/dot1q = 100",
        "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/access-interface{p2}/encapsulation/untagged"}},
      {"VPLS",
       l2vpn_xml("<vpls-group xmlns=\"urn:element:mpls-l2vpn-vpls\"><name>g</name><vpn><name>v</name>"
                 "<vfi><neighbor><address>10.0.0.1</address><pw-id>1</pw-id></neighbor></vfi>"
                 "<bridge-domain><dot1q>100</dot1q><bridge-mtu>1500</bridge-mtu><transparent-lan-service/>"
                 "<access-interface><name>p1</name><encapsulation>"
                 "<dot1q-range><min>300</min><max>300</max></dot1q-range>"
                 "<dot1q-range><min>100</min><max>200</max></dot1q-range></encapsulation></access-interface>"
                 "</bridge-domain></vpn></vpls-group>"),
       l2vpn_json(R"("mpls-l2vpn-vpls:vpls-group": [{"name": "g", "vpn": [{"name": "v",
                     "vfi": {"neighbor": [{"address": "10.0.0.1", "pw-id": 1}]},
                     "bridge-domain": {"dot1q": 100, "bridge-mtu": 1500, "transparent-lan-service": [null],
                       "access-interface": [{"name": "p1", "encapsulation": {"dot1q-range": [
                         {"min": 300, "max": 300}, {"min": 100, "max": 200}]}}]}}]}])"),
       {"/mpls/l2vpn-config/l2vpn/vpls-group{g}", "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/vfi/neighbor{10.0.0.1}",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/vfi/neighbor{10.0.0.1}/pw-id = 1",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/dot1q = 100",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/bridge-mtu = 1500",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/transparent-lan-service",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/access-interface{p1}",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/access-interface{p1}/encapsulation/"
        "dot1q-range{100 200}",
        "/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}/bridge-domain/access-interface{p1}/encapsulation/"
        "dot1q-range{300 300}"}},
  });
}

TEST(Configuration, values_have_the_types_of_the_schema) {
  const element::Tree tree = element::parse_configuration(
      test_schema(),
      l2vpn_xml("<vpls-group xmlns=\"urn:element:mpls-l2vpn-vpls\"><name>7</name><vpn><name>v</name>"
                "<vfi><neighbor><address>10.0.0.1</address><pw-id>1</pw-id></neighbor></vfi>"
                "<bridge-domain><dot1q>8</dot1q><transparent-lan-service/></bridge-domain></vpn></vpls-group>"),
      "candidate");
  const std::string vpn = "/mpls/l2vpn-config/l2vpn/vpls-group{7}/vpn{v}";
  const auto value_at = [&](const std::string &path) { return tree.find(vpn + path)->value; };
  EXPECT_EQ(tree.find("/mpls/l2vpn-config/l2vpn/vpls-group{7}")->keys, std::vector<element::Value>{std::string("7")});
  EXPECT_TRUE(std::holds_alternative<element::Ipv4>(tree.find(vpn + "/vfi/neighbor{10.0.0.1}")->keys.at(0)));
  EXPECT_EQ(value_at("/vfi/neighbor{10.0.0.1}/pw-id"), element::Value(std::uint32_t{1}));
  EXPECT_EQ(value_at("/bridge-domain/dot1q"), element::Value(std::uint16_t{8}));
  EXPECT_EQ(value_at("/bridge-domain/transparent-lan-service"), element::Value(element::Empty{}));
}

TEST(Configuration, containers_that_hold_nothing_are_left_out) {
  EXPECT_EQ(lines_of(l2vpn_xml("")), Lines());
  const element::Tree tree = element::parse_configuration(
      test_schema(),
      l2vpn_xml("<vpls-group xmlns=\"urn:element:mpls-l2vpn-vpls\"><name>g</name><vpn><name>v</name><vfi/>"
                "<bridge-domain/></vpn></vpls-group>"),
      "candidate");
  EXPECT_TRUE(tree.find("/mpls/l2vpn-config/l2vpn/vpls-group{g}/vpn{v}")->children.empty());
}

TEST(Configuration, configures_nothing) {
  for (const char *text : {"{}", " \n{ }\n", "<config xmlns=\"urn:element:base\"/>",
                           "<?xml version=\"1.0\"?><!-- nothing --><mpls xmlns=\"urn:element:mpls\"></mpls>",
                           "<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>"}) {
    EXPECT_EQ(lines_of(text), Lines()) << text;
  }
}

TEST(Configuration, byte_order_mark_and_leading_blanks_are_skipped) {
  const Lines lines{"/config/vlan{5}"};
  EXPECT_EQ(lines_of("\xef\xbb\xbf\r\n\t" + base_xml("<vlan><id>5</id></vlan>")), lines);
  EXPECT_EQ(lines_of("\xef\xbb\xbf\r\n\t" + base_json(R"("vlan": [{"id": 5}])")), lines);
}

TEST(Configuration, top_level_elements_stand_in_a_row_or_inside_a_netconf_wrapper) {
  const std::string row = base_xml("<vlan><id>5</id></vlan>") +
                          "<!-- and -->\n<mpls xmlns=\"urn:element:mpls\"><ldp xmlns=\"urn:element:ldp\">"
                          "<interface><name>a</name></interface></ldp></mpls>";
  const Lines lines{"/config/vlan{5}", "/mpls/ldp/interface{a}"};
  EXPECT_EQ(lines_of(row), lines);
  const std::vector<std::pair<std::string, std::string>> wrappers{
      {"<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">", "</data>"},
      {"<config xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'\n  a = \">\" >", "</config\n>"},
      {"<nc:config a='b' xmlns:nc=\"urn:ietf:params:xml:ns:netconf:base:1.0\">", "</nc:config>"},
      {"<?xml version=\"1.0\"?>\n<!-- <data> -->\n<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">",
       "</data>\n<!-- </data> -->\n<?end?>\n"},
  };
  for (const auto &[begin, end] : wrappers) EXPECT_EQ(lines_of(begin + row + end), lines) << begin;
}

TEST(Configuration, characters_may_be_escaped) {
  EXPECT_EQ(lines_of(base_xml("<l3-interface><name>a&amp;&#98;<![CDATA[<c>]]></name><vlan>5</vlan></l3-interface>")),
            lines_of(base_json(R"("l3-interface": [{"name": "a&\u0062<c>", "vlan": 5}])")));
  EXPECT_EQ(lines_of(base_json(R"("l3-interface": [{"name": "a\"}\\", "vlan": 5}])")),
            (Lines{R"(/config/l3-interface{"a\"}\\"})", R"(/config/l3-interface{"a\"}\\"}/vlan = 5)"}));
}

}  // namespace
