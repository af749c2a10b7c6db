#include "element/profile/interface_data.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"
#include "print.h"

namespace {

/// "NAME TYPE IF-INDEX from LINE" of each interface.
Lines interfaces_of(const std::string &text) {
  Lines lines;
  for (const element::InterfaceData &interface : element::parse_interface_data(text, "interfaces")) {
    lines.push_back(fmt::format("{} {} {} from {}", interface.name, interface.type.empty() ? "-" : interface.type,
                                interface.if_index ? fmt::to_string(*interface.if_index) : "-", interface.line));
  }
  return lines;
}

std::string fault_of(const std::string &text) {
  try {
    interfaces_of(text);
  } catch (const element::InputError &error) {
    return error.what();
  }
  return "";
}

const std::string kContainer = "urn:ietf:params:xml:ns:yang:ietf-interfaces";

std::string xml(const std::string &interfaces, const std::string &container = "interfaces") {
  return "<" + container + " xmlns=\"" + kContainer + "\">\n" + interfaces + "</" + container + ">\n";
}

const std::string kTwo =
    "<interface><name>eth1</name><type xmlns:t=\"urn:t\">t:ethernetCsmacd</type><if-index>7</if-index></interface>\n"
    "<interface><statistics><name>x</name><if-index>8</if-index></statistics><name>eth2</name>"
    "<name xmlns=\"urn:other\">y</name></interface>\n";
const Lines kBoth{"eth1 ethernetCsmacd 7 from 2", "eth2 - - from 3"};

TEST(InterfaceData, is_read_from_xml_in_any_envelope) {
  EXPECT_EQ(interfaces_of(xml(kTwo)), kBoth);
  const std::string reply = "<rpc-reply xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"><data>" + xml(kTwo) +
                            "<system xmlns=\"urn:s\"><interfaces>" + kTwo + "</interfaces>" + xml(kTwo) +
                            "</system></data></rpc-reply>]]>]]>\n";
  EXPECT_EQ(interfaces_of(reply), kBoth);
}

TEST(InterfaceData, is_read_from_json_in_any_envelope) {
  const std::string interfaces = R"("ietf-interfaces:interfaces": {"x:other": [{"name": "x"}], "interface": [
{"name": "eth1", "type": "iana-if-type:ethernetCsmacd", "if-index": 7, "statistics": {"name": "x"}},
{"higher-layer-if": ["a"], "x:name": "y", "name": "eth2"}]})";
  const Lines both{"eth1 ethernetCsmacd 7 from 2", "eth2 - - from 3"};
  EXPECT_EQ(interfaces_of("{" + interfaces + "}"), both);
  EXPECT_EQ(interfaces_of(R"({"ietf-restconf:data": {"x:system": {"interfaces": {"interface": [{"name": "z"}]}},)" +
                          interfaces + "}}"),
            both);
  EXPECT_EQ(interfaces_of("{\"a:b\": {" + interfaces + "}}"), Lines());
}

TEST(InterfaceData, of_configuration_and_state_is_put_together) {
  const std::string configured = xml("<interface><name>eth2</name><type>t:a</type></interface>");
  const std::string state = xml(kTwo, "interfaces-state");
  EXPECT_EQ(interfaces_of(configured + state), (Lines{"eth2 a - from 2", "eth1 ethernetCsmacd 7 from 4"}));
}

TEST(InterfaceData, faults_name_the_line_and_what_was_expected) {
  EXPECT_EQ(fault_of(xml("<interface><if-index>7</if-index></interface>")),
            "interfaces:2: interface without a name; expected its name");
  EXPECT_EQ(fault_of(xml("<interface><name>a</name></interface>\n<interface><name>a</name></interface>")),
            "interfaces:3: interface a is given twice, first on line 2; expected it once");
  for (const std::string number : {"0", "-1", "2147483648", "x", ""}) {
    EXPECT_EQ(fault_of(xml("<interface><name>a</name>\n<if-index>" + number + "</if-index></interface>")),
              "interfaces:3: if-index \"" + number + "\" of interface a; expected a number of 1..2147483647");
  }
  EXPECT_EQ(fault_of(R"({"ietf-interfaces:interfaces": {"interface": [{"name": "a",
"name": "b"}]}})"),
            "interfaces:2: member name is given twice in one object, first on line 1; expected it once");
  EXPECT_EQ(fault_of("interface eth1"),
            "interfaces:1: neither XML nor a JSON object; expected operational data of ietf-interfaces");
  EXPECT_EQ(fault_of("<rpc-reply xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"><rpc-error><error-message>no"
                     "</error-message></rpc-error></rpc-reply>"),
            "interfaces:1: rpc-reply with an error: \"no\"; expected a reply to get-config");
}

}  // namespace
