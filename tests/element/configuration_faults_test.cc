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

const std::string kVpn = "/mpls:mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group[name='g']/vpn[name='v']";
const std::string kAccess = kVpn + "/access-interface[name='p']";

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

TEST(ConfigurationFault, character_that_the_parser_refuses_without_a_word) {
  const std::string fault = "candidate: character that may not stand where it does; expected well-formed XML";
  expect_faults({{base_xml("<vlan \x01/>"), fault}});
}

TEST(ConfigurationFault, malformed_xml) {
  const std::string expected = "; expected well-formed XML";
  expect_faults({
      {base_xml("<vlan><id>5</id></vlann>"),
       "candidate:2: /base:config/vlan/id: Opening (\"vlan\") and closing (\"vlann\") elements tag mismatch" +
           expected},
      {"<config xmlns=\"urn:element:base\">\n<vlan>", "candidate:2: /base:config: Unexpected end-of-input" + expected},
      {base_xml("") + "\ntext",
       "candidate:4: /base:config: Invalid character sequence \"text\", expected element tag start ('<')" + expected},
      {"<!DOCTYPE config>\n" + base_xml(""), "candidate:1: Document Type Declaration not supported" + expected},
      {base_xml("text"),
       "candidate:3: Text value \"\\x0atext\\x0a\" inside an inner node \"config\" found; expected elements only"},
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
  const auto nested = [](std::size_t depth) { return "{\"a\":" + std::string(depth - 1, '['); };
  EXPECT_EQ(fault_of(nested(101)), "candidate: JSON nested deeper than 100 levels; expected fewer");
  EXPECT_EQ(fault_of(nested(100)),
            "candidate:1:105: syntax error while parsing value - unexpected end of input; "
            "expected '[', '{', or a literal");
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
  const std::string top_json = "; expected one of base:config, mpls:mpls";
  const std::string below_vlan = "; expected one of id, interface";
  expect_faults({
      {base_xml("<vlan><id>5</id><mtu/></vlan>"),
       "candidate:2: /base:config/vlan[id='5']: Node \"mtu\" not found as a child of \"vlan\" node" + below_vlan},
      {base_json(R"("vlan": [{"id": 5, "mtu": 1}])"),
       "candidate:2: /base:config/vlan[id='5']: Node \"mtu\" not found as a child of \"vlan\" node" + below_vlan},
      {"\n<config xmlns=\"urn:other\"/>",
       "candidate:2: No module with namespace \"urn:other\" in the context" + top_xml},
      {"\n<config/>", "candidate:2: Missing XML namespace" + top_xml},
      {"\n{\"other:config\": {}}", "candidate:2: No module named \"other\" in the context" + top_json},
      {l2vpn_xml("<vpls-group/>"),
       "candidate:2: /mpls:mpls/l2-vpn:l2vpn-config/l2vpn: Node \"vpls-group\" not found as a child of \"l2vpn\" node; "
       "expected one of vpws-group, vpls-group xmlns=\"urn:element:mpls-l2vpn-vpls\""},
      {l2vpn_json(R"("vpls-group": [])"),
       "candidate:2: /mpls:mpls/l2-vpn:l2vpn-config/l2vpn: Node \"vpls-group\" not found as a child of \"l2vpn\" node; "
       "expected one of vpws-group, mpls-l2vpn-vpls:vpls-group"},
  });
}

TEST(ConfigurationFault, not_the_json_of_yang_data) {
  const std::string expected = "; expected JSON as it stands for YANG data (RFC 7951)";
  expect_faults({
      {"{\"config\": {}}",
       "candidate:1: Top-level JSON object member \"config\" must be namespace-qualified" + expected},
      {base_json(R"("vlan": {"id": 5})"),
       "candidate:2: /base:config: The list \"vlan\" is expected to be represented as JSON name/array of objects, but "
       "input data contains name/object" +
           expected},
  });
}

TEST(ConfigurationFault, value_out_of_its_type) {
  const std::string id = "candidate:2: /base:config/vlan/id: ";
  const std::string range = "is out of the allowed range; expected a number of 1..4094";
  expect_faults({
      {base_xml("<vlan><id>4094</id></vlan>"), "accepted"},
      {base_xml("<vlan><id>4095</id></vlan>"), id + "Unsatisfied range - value \"4095\" " + range},
      {base_json(R"("vlan": [{"id": 0}])"), id + "Unsatisfied range - value \"0\" " + range},
      {base_xml("<vlan><id>x</id></vlan>"), id + "Invalid type uint16 value \"x\"; expected a number of 1..4094"},
      {base_json(R"("vlan": [{"id": "5"}])"),
       id + "Invalid non-number-encoded uint16 value \"5\"; expected a number of 1..4094"},
      {base_xml("<igmp-snooping><instance>0</instance></igmp-snooping>"),
       "candidate:2: /base:config/igmp-snooping/instance: Unsatisfied range - value \"0\" is out of the allowed range; "
       "expected a number of 1..2147483647"},
      {base_xml("<service-port><number>4294967296</number></service-port>"),
       "candidate:2: /base:config/service-port/number: Value \"4294967296\" is out of type uint32 min/max bounds; "
       "expected a number of 0..4294967295"},
      {base_xml("<vlan><id>5</id><interface><name></name></interface></vlan>"),
       "candidate:2: /base:config/vlan[id='5']/interface/name: Unsatisfied length - string \"\" length is not allowed; "
       "expected text of 1..63 characters"},
      {base_json(R"("service-port": [{"number": 1, "match": {"vlan": {"vlan-id": {"any": true}}}}])"),
       "candidate:2: /base:config/service-port[number='1']/match/vlan/vlan-id/any: Invalid non-empty-encoded empty "
       "value \"true\"; expected no value ([null] in JSON)"},
  });
}

TEST(ConfigurationFault, address_out_of_its_type) {
  for (const char *address : {"10.0.0.256", "10.0.0", "10.0.0.01", "10.0.0.1 ", "::1"}) {
    const std::string fault =
        fault_of(vpws("<neighbor><address>" + std::string(address) + "</address><pw-id>1</pw-id></neighbor>"));
    EXPECT_EQ(fault.find("candidate:3: " + kVpn + "/neighbor/address: "), 0U) << fault;
    EXPECT_NE(fault.find(std::string("\"") + address + "\""), std::string::npos) << fault;
    EXPECT_TRUE(fault.ends_with("; expected an IPv4 address in dotted notation")) << fault;
  }
}

TEST(ConfigurationFault, given_twice) {
  const std::string once = "; expected each node and each entry once";
  expect_faults({
      {base_xml("<vlan><id>5</id></vlan><vlan><id>6</id></vlan>"), "accepted"},
      {base_xml("<vlan><id>5</id></vlan><vlan><id>5</id></vlan>"),
       "candidate:3: /base:config/vlan[id='5']: Duplicate instance of \"vlan\"" + once},
      {base_json("\"vlan\": [{\"id\": 5}, {\"id\": 5}]"),
       "candidate:3: /base:config/vlan[id='5']: Duplicate instance of \"vlan\"" + once},
      {base_xml("") + base_xml(""), "candidate: /base:config: Duplicate instance of \"config\"" + once},
      {base_json(R"("l3-interface": [{"name": "a", "vlan": 5, "vlan": 6}])"),
       "candidate: member vlan given twice in one object; expected each member once"},
      {"{\"base:config\": {}, \"base:config\": {}}",
       "candidate: member base:config given twice in one object; expected each member once"},
      {base_json("\"vlan\": [{\"id\": 5}],\n\"vlan\": [{\"id\": 6}]"),
       "candidate: member vlan given twice in one object; expected each member once"},
      {base_json("\"vlan\": [{\"id\": 5}],\n\"base:vlan\": [{\"id\": 6}]"),
       "candidate: member base:vlan given twice in one object; expected each member once"},
  });
  // The path that the parser gives here leaves out what is above the entry.
  const std::string fault =
      fault_of(base_xml("<l3-interface><name>a</name><vlan>5</vlan><vlan>6</vlan></l3-interface>"));
  EXPECT_EQ(fault.find("candidate:2: /base:"), 0U) << fault;
  EXPECT_TRUE(fault.ends_with("l3-interface[name='a']/vlan: Duplicate instance of \"vlan\"" + once)) << fault;
}

TEST(ConfigurationFault, missing_node) {
  const std::string unset = "; expected it to be set";
  expect_faults({
      {base_xml("<l3-interface><name>a</name><vlan>5</vlan></l3-interface><l3-interface><name>b</name></l3-interface>"),
       "candidate: /base:config/l3-interface[name='b']/vlan: Mandatory node \"vlan\" instance does not exist" + unset},
      {vpws_json(R"("backup-neighbor": [{"address": "10.0.0.1"}])"),
       "candidate: " + kVpn +
           "/backup-neighbor[address='10.0.0.1']/pw-id: Mandatory node \"pw-id\" instance does not exist" + unset},
      {base_xml("<l3-interface><vlan>5</vlan></l3-interface>"),
       "candidate:2: /base:config/l3-interface: List instance is missing its key \"name\"; "
       "expected all keys of the entry"},
  });
}

TEST(ConfigurationFault, range_whose_last_vlan_is_below_its_first) {
  const auto range = [](int min, int max) {
    return vpws("<access-interface><name>p</name><encapsulation><dot1q-range><min>" + std::to_string(min) +
                "</min><max>" + std::to_string(max) + "</max></dot1q-range></encapsulation></access-interface>");
  };
  const std::string fault =
      "the last VLAN of a dot1q-range must not be below its first; expected values that keep this rule";
  const std::string path = kAccess + "/encapsulation/dot1q-range[min='101'][max='100']/max";
  expect_faults({{range(100, 100), "accepted"},
                 {range(101, 100), "candidate: " + path + ": " + fault},
                 {vpws_json(R"("access-interface": [{"name": "p", "encapsulation": {"dot1q-range": [
                               {"min": 101, "max": 100}]}}])"),
                  "candidate: " + path + ": " + fault}});
}

TEST(ConfigurationFault, both_cases_of_a_choice) {
  const std::string fault = ": Data for both cases \"untagged\" and \"dot1q-range\" exist; expected one of the two";
  expect_faults({
      {vpws("<access-interface><name>p</name><encapsulation><untagged/>"
            "<dot1q-range><min>1</min><max>2</max></dot1q-range></encapsulation></access-interface>"),
       "candidate:3: " + kAccess + "/encapsulation" + fault},
      {vpws_json(R"("access-interface": [{"name": "p", "encapsulation": {"untagged": [null],
                    "dot1q-range": [{"min": 1, "max": 2}]}}])"),
       "candidate:4: " + kAccess + "/encapsulation" + fault},
  });
}

TEST(ConfigurationFault, derived_nodes) {
  const std::string expected = "; expected what an operator writes, not what the element derives from it";
  expect_faults({
      {"<internal xmlns=\"urn:element:internal\"/>",
       "candidate:1: /internal:internal: Unexpected data state node \"internal\" found" + expected},
      {R"({"KZ-VPLS-MIB:KZ-VPLS-MIB": {"vplsConfigTable": {}}})",
       "candidate:1: /KZ-VPLS-MIB:KZ-VPLS-MIB: Unexpected data state node \"KZ-VPLS-MIB\" found" + expected},
  });
}

TEST(ConfigurationFault, attributes) {
  const std::string netconf = "urn:ietf:params:xml:ns:netconf:base:1.0";
  expect_faults({
      {base_xml("<vlan operation=\"delete\"><id>5</id></vlan>"),
       "candidate:2: /base:config: Missing mandatory prefix for XML metadata \"operation\"; expected no attributes"},
      {base_xml("<vlan xmlns:nc=\"" + netconf + "\" nc:operation=\"delete\"><id>5</id></vlan>"),
       "candidate:2: /base:config: Unknown (or not implemented) YANG module with namespace \"" + netconf +
           "\" for metadata \"nc:operation\"; expected no attributes"},
      {base_xml("<vlan xmlns:yang=\"urn:ietf:params:xml:ns:yang:1\" yang:insert=\"first\"><id>5</id></vlan>"),
       "candidate: /base:config/vlan[id='5']: attribute insert; expected no attributes"},
      {base_json(R"("vlan": [{"id": 5, "@id": {"base:operation": "delete"}}])"),
       "candidate:2: /base:config/vlan[id='5']/id: Annotation definition for attribute \"base:operation\" not found; "
       "expected no attributes"},
  });
}

TEST(ConfigurationFault, netconf_wrapper_that_is_not_around_all) {
  const std::string open = "\n<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">";
  const std::string fault = "candidate:2: element data is not the only one of the file; expected it around all others";
  expect_faults({{open + base_xml(""), fault},
                 {open + base_xml("") + "</data>" + base_xml(""), fault},
                 {open + base_xml("") + "</config>", fault},
                 {open + base_xml("") + "</data", fault},
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
  const std::string fault = fault_of(base_xml("<vlan>\n\x7f[31m<id>5</id></vlan>"));
  EXPECT_EQ(fault.find_first_of("\n\x7f"), std::string::npos) << fault;
  EXPECT_NE(fault.find("\\x0a\\x7f[31m"), std::string::npos) << fault;
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
