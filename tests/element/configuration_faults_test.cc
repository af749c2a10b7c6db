#include <fmt/format.h>

#include "configuration_text.h"
#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "print.h"

namespace {

std::string fault_of(const std::string &text) {
  try {
    element::parse_configuration(test_schema(), text, "candidate");
  } catch (const element::FileError &error) {
    return std::string("file error: ") + error.what();
  } catch (const element::InputError &error) {
    return error.what();
  }
  return "accepted";
}

using Rows = std::vector<std::pair<std::string, std::string>>;

/// Each text and what stands in its error, whole or, for the parser's own words, the parts around them.
void expect_faults(const Rows &rows) {
  for (const auto &[text, fault] : rows) EXPECT_EQ(fault_of(text), fault) << text;
}

std::string vpws(const std::string &content) {
  return l2vpn_xml("<vpws-group><name>g</name><vpn><name>v</name>\n" + content + "</vpn></vpws-group>");
}

std::string vpws_json(const std::string &content) {
  return l2vpn_json(R"("vpws-group": [{"name": "g", "vpn": [{"name": "v",)"
                    "\n" +
                    content + "}]}]");
}

const std::string kVpn = "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}";
const std::string kAccess = kVpn + "/access-interface{p}";

TEST(ConfigurationFault, nothing_in_the_file) {
  const std::string empty = "candidate: empty; expected XML elements or a JSON object ({} configures nothing)";
  const std::string no_element = "candidate: no element; expected at least one, without content to configure nothing";
  expect_faults({{"", empty},
                 {" \n\t\r\n", empty},
                 {"\xef\xbb\xbf", empty},
                 {"<!-- nothing\n -->\n", no_element},
                 {"<?xml version=\"1.0\"?>", no_element}});
}

TEST(ConfigurationFault, neither_xml_nor_json) {
  expect_faults({{"\n[]", "candidate:2: neither XML nor JSON begins with [; expected '<' or '{'"},
                 {"config", "candidate:1: neither XML nor JSON begins with c; expected '<' or '{'"},
                 {"\xff\xfe{", "candidate:1: byte \\xff; expected text in UTF-8"}});
}

TEST(ConfigurationFault, zero_byte_is_not_the_end) {
  const std::string xml = base_xml("");
  const std::string fault = "candidate:3: zero byte; expected text in UTF-8";
  expect_faults({{xml + '\0' + "<rest/>", fault}, {base_json("") + '\0' + "rest", fault}});
}

TEST(ConfigurationFault, bytes_that_are_not_utf8) {
  const std::string fault = "candidate:2: byte \\xff; expected text in UTF-8";
  expect_faults({{base_xml("<l3-interface><name>\xc3\xbc</name><vlan>1</vlan></l3-interface>"), "accepted"},
                 {base_xml("<l3-interface><name>\xff</name><vlan>1</vlan></l3-interface>"), fault},
                 {base_xml("<vlan \xff/>"), fault},
                 {base_json("\"\xff\": 1"), fault}});
}

TEST(ConfigurationFault, character_that_may_not_stand_in_xml) {
  expect_faults({{base_xml("<vlan \x01/>"), "candidate:2: not well-formed (invalid token); expected well-formed XML"}});
}

TEST(ConfigurationFault, malformed_xml) {
  expect_faults({
      {base_xml("<vlan><id>5</id></vlann>"), "candidate:2: mismatched tag; expected </vlan>"},
      {"<config xmlns=\"urn:element:base\">\n<vlan>", "candidate:2: the text ends inside an element; expected </vlan>"},
      {base_xml("") + "\ntext", "candidate:4: text outside of all elements; expected an element"},
      {"<!DOCTYPE config>\n" + base_xml(""), "candidate:1: document type declaration; expected XML without one"},
      {base_xml("text"), "candidate:1: /config: text in a node that holds other nodes; expected elements only"},
      {base_xml("<vlan><id>5<id/></id></vlan>"),
       "candidate:2: /config/vlan/id: \"id\" of module base is not in the data model here; expected nothing below it"},
  });
}

TEST(ConfigurationFault, malformed_json) {
  const std::string literal = "syntax error while parsing value - invalid literal; ";
  expect_faults({
      {base_json(R"("vlan": [{"id": 5])"),
       "candidate:2:18: syntax error while parsing object - unexpected ']'; expected '}'"},
      {"{\"base:config\":\n",
       "candidate:2:1: syntax error while parsing value - unexpected end of input; expected '[', '{', or a literal"},
      {"{}\n\nx", "candidate:3:1: " + literal + "last read: '{}<U+000A><U+000A>x'; expected end of input"},
      {"{}\n{}", "candidate:2:1: syntax error while parsing value - unexpected '{'; expected end of input"},
      {base_json(R"("\u14{": 1)"),
       "candidate:2:6: syntax error while parsing object key - invalid string: '\\u' must be followed by 4 hex digits; "
       "last read: '\"\\u14{'; expected string literal"},
  });
}

TEST(ConfigurationFault, nested_deeper_than_any_configuration) {
  const auto nested = [](std::size_t depth) { return "{\"other:a\":" + std::string(depth - 1, '['); };
  EXPECT_EQ(fault_of(nested(101)), "candidate:1: JSON nested deeper than 100 levels; expected fewer");
  EXPECT_EQ(fault_of(nested(100)),
            "candidate:1:111: syntax error while parsing value - unexpected end of input; "
            "expected '[', '{', or a literal");
  std::string elements;
  for (int i = 0; i <= 100; ++i) elements += "<a xmlns='urn:other'>";
  EXPECT_EQ(fault_of(elements), "candidate:1: nested deeper than 100 elements; expected fewer");
}

TEST(ConfigurationFault, text_that_breaks_off) {
  const std::string xml = base_xml("<vlan><id>5</id></vlan>");
  const std::string json = base_json(R"("vlan": [{"id": 5}])");
  for (const std::string &text : {xml, json}) {
    EXPECT_EQ(fault_of(text), "accepted");
    for (std::size_t size = 0; size < text.size(); ++size) {
      EXPECT_NE(fault_of(text.substr(0, size)), "accepted") << text.substr(0, size);
    }
  }
}

TEST(ConfigurationFault, unknown_name) {
  const std::string top_xml = R"(; expected one of config xmlns="urn:element:base", mpls xmlns="urn:element:mpls")";
  const std::string mtu =
      "candidate:2: /config/vlan{5}: \"mtu\" of module base is not in the data model here; expected one of id, interface";
  const std::string group =
      "candidate:2: /mpls/l2vpn-config/l2vpn: \"vpls-group\" of module l2-vpn is not in the data model here; ";
  expect_faults({
      {base_xml("<vlan><id>5</id><mtu/></vlan>"), mtu},
      {base_json(R"("vlan": [{"id": 5, "mtu": 1}])"), mtu},
      {"\n<konfig xmlns=\"urn:element:base\"/>",
       "candidate:2: \"konfig\" of module base is not in the data model here" + top_xml},
      {"\n<mpls/>", "candidate:2: element mpls without a namespace" + top_xml},
      {"<config>\n<vlan/></config>", "candidate:2: element vlan without a namespace" + top_xml},
      {base_xml("<vlan xmlns=\"\"/>"),
       "candidate:2: /config: element vlan without a namespace; "
       "expected one of service-port, vlan, l3-interface, igmp-snooping"},
      {l2vpn_xml("<vpls-group/>"),
       group + "expected one of vpws-group, vpls-group xmlns=\"urn:element:mpls-l2vpn-vpls\""},
      {l2vpn_json(R"("vpls-group": [])"), group + "expected one of vpws-group, mpls-l2vpn-vpls:vpls-group"},
  });
}

TEST(ConfigurationFault, not_the_json_of_yang_data) {
  const std::string other_kind = " with a value of another kind; expected ";
  const std::string array = "candidate:2: /config: \"vlan\"" + other_kind + "an array of objects";
  const std::string value = other_kind + "a single value, or [null] for a leaf without a value";
  expect_faults({
      {"{\"config\": {}}",
       "candidate:1: top-level member config without a module; expected one of base:config, mpls:mpls"},
      {base_json(R"("vlan": {"id": 5})"), array},
      {base_json(R"("vlan": 5)"), array},
      {base_json(R"("vlan": [5])"), array},
      {base_json(R"("vlan": [[]])"), array},
      {"{\"base:config\": []}", "candidate:1: \"config\"" + other_kind + "an object"},
      {base_json(R"("vlan": [{"id": {}}])"), "candidate:2: /config/vlan: \"id\"" + value},
      {base_json(R"("vlan": [{"id": [[5]]}])"),
       "candidate:2: /config/vlan/id: value without a name; expected a single value, or members of an object"},
      {base_json(R"("vlan": [{"id": [5, 6]}])"),
       "candidate:2: /config/vlan/id: more than one value; expected a single value"},
      {base_json(R"("vlan": [{"id": [5]}])"),
       "candidate:2: /config/vlan{\"\"}/id: Expected JSON name/value or special name/[null], but input data contains "
       "name/[number]; expected a number of 1..4094"},
  });
}

TEST(ConfigurationFault, value_out_of_its_type) {
  const auto id = [](const char *key) { return fmt::format("candidate:2: /config/vlan{{{}}}/id: ", key); };
  const std::string range = "is out of the allowed range; expected a number of 1..4094";
  expect_faults({
      {base_xml("<vlan><id>4094</id></vlan>"), "accepted"},
      {base_xml("<vlan><id>4095</id></vlan>"), id("4095") + "Unsatisfied range - value \"4095\" " + range},
      {base_json(R"("vlan": [{"id": 0}])"), id("0") + "Unsatisfied range - value \"0\" " + range},
      {base_xml("<vlan><id>x</id></vlan>"), id("x") + "Invalid type uint16 value \"x\"; expected a number of 1..4094"},
      {base_json(R"("vlan": [{"id": "5"}])"),
       id("5") + "Invalid non-number-encoded uint16 value \"5\"; expected a number of 1..4094"},
      {base_xml("<igmp-snooping><instance>0</instance></igmp-snooping>"),
       "candidate:2: /config/igmp-snooping{0}/instance: Unsatisfied range - value \"0\" is out of the allowed range; "
       "expected a number of 1..2147483647"},
      {base_xml("<service-port><number>4294967296</number></service-port>"),
       "candidate:2: /config/service-port{4294967296}/number: Value \"4294967296\" is out of type uint32 min/max bounds; "
       "expected a number of 0..4294967295"},
      {base_xml("<vlan><id>5</id><interface><name></name></interface></vlan>"),
       "candidate:2: /config/vlan{5}/interface{\"\"}/name: Unsatisfied length - string \"\" length is not allowed; "
       "expected text of 1..63 characters"},
      {base_json(R"("service-port": [{"number": 1, "match": {"vlan": {"vlan-id": {"any": true}}}}])"),
       "candidate:2: /config/service-port{1}/match/vlan/vlan-id/any: Invalid non-empty-encoded empty "
       "value \"true\"; expected no value ([null] in JSON)"},
  });
}

TEST(ConfigurationFault, address_out_of_its_type) {
  for (const char *address : {"10.0.0.256", "10.0.0", "10.0.0.01", "10.0.0.1 ", "::1"}) {
    const std::string fault =
        fault_of(vpws("<neighbor><address>" + std::string(address) + "</address><pw-id>1</pw-id></neighbor>"));
    EXPECT_TRUE(fault.starts_with("candidate:3: " + kVpn + "/neighbor{")) << fault;
    EXPECT_NE(fault.find(fmt::format("}}/address: Unsatisfied pattern - \"{}\"", address)), std::string::npos) << fault;
    EXPECT_TRUE(fault.ends_with("; expected an IPv4 address in dotted notation")) << fault;
  }
}

TEST(ConfigurationFault, given_twice) {
  const auto once = [](int line, const std::string &path, const std::string &name) {
    return fmt::format("candidate:{}: {}\"{}\" is given twice, first on line 2; expected it once", line, path, name);
  };
  const std::string entry = "candidate:3: /config/vlan{5}: given twice, first on line 2; expected each entry once";
  expect_faults({
      {base_xml("<vlan><id>5</id></vlan><vlan><id>6</id></vlan>"), "accepted"},
      {base_xml("<vlan><id>5</id></vlan>\n<vlan><id>005</id></vlan>"), entry},
      {base_json("\"vlan\": [{\"id\": 5},\n{\"id\": 5}]"), entry},
      {"\n" + base_xml("") + base_xml(""), once(4, "", "config")},
      {base_json("\"l3-interface\": [{\"name\": \"a\", \"vlan\": 5,\n\"vlan\": 6}]"),
       once(3, "/config/l3-interface{a}: ", "vlan")},
      {"{\n\"base:config\": {},\n\n\"base:config\": {}}", once(4, "", "config")},
      {base_json("\"vlan\": [{\"id\": 5}],\n\"vlan\": [{\"id\": 6}]"), once(3, "/config: ", "vlan")},
      {base_json("\"vlan\": [{\"id\": 5}],\n\"base:vlan\": [{\"id\": 6}]"), once(3, "/config: ", "vlan")},
      {base_json("\"vlan\": [{\"id\": 5}],\n\"other:vlan\": [{\"id\": 6}]"), "accepted"},
      {base_xml("<l3-interface><name>a</name><vlan>5</vlan>\n<vlan>6</vlan></l3-interface>"),
       once(3, "/config/l3-interface{a}: ", "vlan")},
  });
}

TEST(ConfigurationFault, missing_node) {
  const std::string mandatory = " is missing; expected it to be set, because it is mandatory";
  const std::string key = "candidate:2: /config/l3-interface: key \"name\" is missing; expected all keys of the entry";
  expect_faults({
      {base_xml("<l3-interface><name>a</name><vlan>5</vlan></l3-interface>\n<l3-interface>\n<name>b</name>"
                "</l3-interface>"),
       "candidate:3: /config/l3-interface{b}: \"vlan\"" + mandatory},
      {vpws_json(R"("backup-neighbor": [{"address": "10.0.0.1"}])"),
       "candidate:3: " + kVpn + "/backup-neighbor{10.0.0.1}: \"pw-id\"" + mandatory},
      {base_xml("<l3-interface>\n<vlan>5</vlan></l3-interface>"), key},
      {base_json("\"l3-interface\": [{\n\"vlan\": 5}]"), key},
  });
}

TEST(ConfigurationFault, range_whose_last_vlan_is_below_its_first) {
  const auto range = [](int min, int max) {
    return vpws("<access-interface><name>p</name><encapsulation><dot1q-range><min>" + std::to_string(min) +
                "</min><max>" + std::to_string(max) + "</max></dot1q-range></encapsulation></access-interface>");
  };
  const std::string fault =
      "the last VLAN of a dot1q-range must not be below its first; expected values that keep this rule";
  const std::string path = kAccess + "/encapsulation/dot1q-range{101 100}/max";
  expect_faults({{range(100, 100), "accepted"},
                 {range(101, 100), "candidate:3: " + path + ": " + fault},
                 {vpws_json(R"("access-interface": [{"name": "p", "encapsulation": {"dot1q-range": [
                               {"min": 101, "max": 100}]}}])"),
                  "candidate:4: " + path + ": " + fault}});
}

TEST(ConfigurationFault, both_cases_of_a_choice) {
  const std::string fault = ": Data for both cases \"untagged\" and \"dot1q-range\" exist; expected one of the two";
  expect_faults({
      {vpws("<access-interface><name>p</name><encapsulation><untagged/>"
            "<dot1q-range><min>1</min><max>2</max></dot1q-range></encapsulation></access-interface>"),
       "candidate:3: " + kAccess + "/encapsulation" + fault},
      {vpws_json(R"("access-interface": [{"name": "p", "encapsulation": {"untagged": [null],
                    "dot1q-range": [{"min": 1, "max": 2}]}}])"),
       "candidate:3: " + kAccess + "/encapsulation" + fault},
  });
}

TEST(ConfigurationFault, derived_nodes) {
  const std::string expected = "; expected what an operator writes, not what the element derives from it";
  expect_faults({
      {"<internal xmlns=\"urn:element:internal\"/>", "candidate:1: \"internal\" is derived" + expected},
      {R"({"KZ-VPLS-MIB:KZ-VPLS-MIB": {"vplsConfigTable": {}}})", "candidate:1: \"KZ-VPLS-MIB\" is derived" + expected},
  });
}

TEST(ConfigurationFault, attributes) {
  const auto vlan = [](const std::string &attribute) { return base_xml("<vlan " + attribute + "><id>5</id></vlan>"); };
  const auto fault = [](const char *name) {
    return fmt::format(
        "candidate:2: /config: attribute {} of element vlan; expected no attributes but annotations of "
        "other namespaces",
        name);
  };
  expect_faults({
      {vlan("operation=\"delete\""), fault("operation")},
      {vlan("xmlns:b=\"urn:element:base\" b:vlan=\"1\""), fault("vlan")},
      {vlan("xmlns:wd=\"urn:ietf:params:xml:ns:netconf:default:1.0\" wd:default=\"true\" xml:lang=\"en\""), "accepted"},
      {base_json(R"("vlan": [{"id": 5, "@id": {"ietf-netconf-with-defaults:default": true}}], "@vlan": [null])"),
       "accepted"},
  });
}

TEST(ConfigurationFault, edit_in_place_of_a_configuration) {
  const std::string base = "urn:ietf:params:xml:ns:netconf:base:1.0";
  const std::string instead = "; expected a whole configuration; an edit is given with --edit";
  const auto fault = [&](const std::string &sign) { return "an edit was given as a configuration" + sign + instead; };
  const std::string edit = "<edit-config xmlns=\"" + base + "\"><target><candidate/></target><config>";
  expect_faults({
      {base_xml("<vlan xmlns:nc=\"" + base + "\" nc:operation=\"delete\"><id>5</id></vlan>"),
       "candidate:2: /config: " + fault(" (attribute operation)")},
      {base_xml("<vlan xmlns:yang=\"urn:ietf:params:xml:ns:yang:1\" yang:insert=\"first\"><id>5</id></vlan>"),
       "candidate:2: /config: " + fault(" (attribute insert)")},
      {"<x xmlns=\"urn:other\" xmlns:nc=\"" + base + "\">\n<y nc:operation=\"delete\"/></x>",
       "candidate:2: " + fault(" (attribute operation)")},
      {"\n" + edit + "</config></edit-config>", "candidate:2: " + fault("")},
      {"<rpc message-id=\"1\" xmlns=\"" + base + "\">\n" + edit + "</config></edit-config></rpc>",
       "candidate:2: " + fault("")},
      {base_json("\"vlan\": [{\"id\": 5,\n\"@\": {\"ietf-netconf:operation\": \"delete\"}}]"),
       "candidate:3: /config/vlan{5}: " + fault(" (annotation ietf-netconf:operation)")},
  });
}

TEST(ConfigurationFault, netconf_wrapper_that_is_not_around_all) {
  const std::string open = "\n<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">";
  const std::string fault = "candidate:2: element data is not the only one of the file; expected it around all others";
  expect_faults({{open + base_xml(""), "candidate:4: the text ends inside an element; expected </data>"},
                 {open + "</data><config xmlns='urn:element:base'/>", fault},
                 {open + "</data>" + open.substr(1) + "</data>", fault},
                 {"<config xmlns='urn:element:base'/>" + open + "</data>", fault},
                 {open + base_xml("") + "</config>", "candidate:4: mismatched tag; expected </data>"},
                 {open + base_xml("") + "</data", "candidate:4: unclosed token; expected well-formed XML"},
                 {"\n<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>" + base_xml(""), fault}});
}

TEST(ConfigurationFault, lines_are_counted_through_wrapper_comments_and_breaks) {
  const std::string bad = "<mtu/>";
  const std::string open = "<data xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'\n a='\n'>";
  const std::vector<std::pair<std::string, std::string>> rows{
      {open + base_xml("\n" + bad) + "</data>", "candidate:5: "},
      {"\xef\xbb\xbf<!--\n\n-->" + base_xml(bad), "candidate:4: "},
      {"\r\n" + base_xml("<!-- \r\n -->\r\n" + bad), "candidate:5: "},
      {"\n\n" + base_json("\n\"mtu\": 1"), "candidate:5: "},
  };
  for (const auto &[text, begin] : rows) EXPECT_EQ(fault_of(text).substr(0, begin.size()), begin) << text;
}

TEST(ConfigurationFault, messages_stay_on_one_line) {
  EXPECT_EQ(fault_of(base_xml("<vlan><id>\n\x7f[31m\xe2\x80\xae\xc2\x9b</id></vlan>")),
            "candidate:2: /config/vlan{\\x0a\\x7f[31m\\u202e\\x9b}/id: Invalid type uint16 value "
            "\"\\x7f[31m\\u202e\\x9b\"; expected a number of 1..4094");
}

TEST(ConfigurationFault, nothing_reaches_standard_error) {
  testing::internal::CaptureStderr();
  fault_of(base_xml("<mtu/>"));
  fault_of(base_xml("<l3-interface><name>a</name></l3-interface>"));
  fault_of(base_json("\"mtu\": 1"));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ConfigurationFault, does_not_outlive_its_file) {
  EXPECT_NE(fault_of(base_xml("<mtu/>")), "accepted");
  EXPECT_EQ(fault_of(base_xml("<vlan><id>5</id></vlan>")), "accepted");
  EXPECT_EQ(fault_of("<other xmlns=\"urn:element:base\"/>").substr(0, 12), "candidate:1:");
}

}  // namespace
