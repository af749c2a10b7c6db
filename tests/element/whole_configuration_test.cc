#include <fmt/format.h>

#include "configuration_text.h"
#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "print.h"

namespace {

const std::string kBase = "urn:ietf:params:xml:ns:netconf:base:1.0";
const std::string kVlan = "<config xmlns=\"urn:element:base\"><vlan><id>5</id></vlan></config>";
const Lines kVlanLines{"/config/vlan{5}"};

std::string reply(const std::string &content) {
  return "<rpc-reply xmlns=\"" + kBase + "\" message-id=\"101\">\n" + content + "\n</rpc-reply>";
}

element::ConfigurationFile parse(const std::string &text, const element::ReadOptions &options = {}) {
  return element::parse_configuration_file(test_schema(), text, "running", options);
}

std::string fault_of(const std::string &text, const element::ReadOptions &options = {}) {
  try {
    parse(text, options);
  } catch (const element::InputError &error) {
    return error.what();
  }
  return "accepted";
}

/// "NAME: NODES from LINE" of each module.
Lines foreign_of(const std::string &text) {
  Lines lines;
  for (const element::ForeignModule &module : parse(text).source.passed_over.modules) {
    lines.push_back(fmt::format("{}: {} from {}", module.name, module.nodes, module.line));
  }
  return lines;
}

TEST(WholeConfiguration, every_envelope_of_protocols_is_taken_off) {
  const std::string data = "<data>" + kVlan + "</data>";
  const std::vector<std::string> texts{
      reply(data),
      reply(data) + "\n]]>]]>\n",
      "<?xml version=\"1.0\"?>" + reply(data) + "]]>]]>",
      fmt::format("\n#{}\n{}\n##\n", reply(data).size(), reply(data)),
      reply("<data xmlns=\"urn:ietf:params:xml:ns:yang:ietf-netconf-nmda\">" + kVlan + "</data>"),
      "<data xmlns=\"urn:ietf:params:xml:ns:yang:ietf-netconf-nmda\">" + kVlan + "</data>",
      "<data xmlns=\"urn:ietf:params:xml:ns:yang:ietf-restconf\">" + kVlan + "</data>",
      "<data xmlns=\"" + kBase + "\">" + kVlan + "</data>",
      "<nc:config xmlns:nc=\"" + kBase +
          "\" xmlns:b=\"urn:element:base\"><b:config><b:vlan><b:id>5</b:id></b:vlan>"
          "</b:config></nc:config>",
      "<config>" + kVlan + "</config>",
      "<data>" + kVlan + "</data>",
      R"({"ietf-restconf:data": {"base:config": {"vlan": [{"id": 5}]}}})",
  };
  for (const std::string &text : texts) EXPECT_EQ(print(parse(text).tree), kVlanLines) << text;
}

TEST(WholeConfiguration, nodes_of_other_modules_are_passed_over_and_counted) {
  const std::string xml =
      "<system xmlns=\"urn:x\"><host>a</host>\n<dns xmlns=\"urn:y\"><server/><server/></dns></system>\n"
      "<config xmlns=\"urn:element:base\"><z:tag xmlns:z=\"urn:z\">&lt;\n</z:tag><vlan><id>5</id>"
      "<note xmlns=\"urn:x\"><id>7</id></note></vlan></config><empty xmlns=\"urn:x\"/>";
  EXPECT_EQ(print(parse(xml).tree), kVlanLines);
  EXPECT_EQ(foreign_of(xml), (Lines{"urn:x: 5 from 1", "urn:y: 3 from 2", "urn:z: 1 from 3"}));
  EXPECT_EQ(parse(xml).source.passed_over.nodes(), 9U);

  const std::string json =
      "{\"x:system\": {\"host\": \"a\",\n\"y:dns\": {\"server\": [{}, {}]}, \"x:list\": [1, 2]},\n"
      "\"base:config\": {\"z:tag\": \"{\", \"vlan\": [{\"x:note\": {\"id\": 7}, \"id\": 5, \"@id\": {\"x:a\": [1]}}]},\n"
      "\"x:empty\": [null], \"x:none\": []}";
  EXPECT_EQ(print(parse(json).tree), kVlanLines);
  EXPECT_EQ(foreign_of(json), (Lines{"x: 7 from 1", "y: 3 from 2", "z: 1 from 3"}));
}

TEST(WholeConfiguration, a_file_of_other_modules_alone_configures_nothing) {
  for (const char *text : {"<config xmlns=\"urn:other\"/>", "<data><a xmlns=\"urn:other\"/></data>", "{\"o:a\": 1}"}) {
    EXPECT_EQ(print(parse(text).tree), Lines()) << text;
    EXPECT_EQ(parse(text).source.passed_over.nodes(), 1U) << text;
  }
}

TEST(WholeConfiguration, strict_reading_refuses_other_modules) {
  element::ReadOptions strict;
  strict.refuse_foreign = true;
  const std::string expected = "; expected nodes of the element's own modules alone";
  EXPECT_EQ(fault_of(base_xml("<vlan><id>5</id>\n<x:note xmlns:x=\"urn:x\"/></vlan>"), strict),
            "running:3: /config/vlan{5}: foreign node note of namespace \"urn:x\"" + expected);
  EXPECT_EQ(fault_of("{\n\"x:system\": 1}", strict), "running:2: foreign node system of module \"x\"" + expected);
  EXPECT_EQ(fault_of(reply("<data>" + kVlan + "</data>"), strict), "accepted");
}

TEST(WholeConfiguration, replies_without_a_configuration) {
  const std::string expected = "; expected a reply to get-config";
  const std::string error =
      "<rpc-error><error-type>application</error-type><error-tag>access-denied</error-tag>"
      "<error-message xml:lang=\"en\">\n no access\x7f \n</error-message><error-info><a xmlns=\"urn:a\">b</a></error-info>"
      "</rpc-error>";
  const std::string tag = "<rpc-error><error-tag>in-use</error-tag></rpc-error>";
  EXPECT_EQ(fault_of("\n" + reply(error)), "running:2: rpc-reply with an error: \"no access\\x7f\"" + expected);
  EXPECT_EQ(fault_of(reply("<data>" + kVlan + "</data>" + error + tag)),
            "running:1: rpc-reply with an error: \"no access\\x7f\", \"in-use\"" + expected);
  EXPECT_EQ(fault_of(reply("<ok/>")), "running:2: rpc-reply with ok in place of data" + expected);
  EXPECT_EQ(fault_of(reply("")), "running:1: rpc-reply without data" + expected);
  EXPECT_EQ(fault_of(reply("text")), "running:1: text in element rpc-reply; expected elements only");
}

TEST(WholeConfiguration, other_messages_of_netconf) {
  const std::string expected = "; expected an rpc-reply with data, or a data or config element";
  EXPECT_EQ(fault_of("<hello xmlns=\"" + kBase + "\"><capabilities/></hello>"),
            "running:1: element hello of NETCONF" + expected);
  EXPECT_EQ(fault_of("<rpc xmlns=\"" + kBase + "\">\n<get-config/></rpc>"), "running:2: request get-config" + expected);
  EXPECT_EQ(fault_of("<rpc xmlns=\"" + kBase + "\"/>"), "running:1: rpc without an operation" + expected);
  EXPECT_EQ(fault_of("<data xmlns=\"" + kBase + "\">\n<mpls/></data>"),
            "running:2: element mpls of NETCONF's namespace; "
            "expected one of config xmlns=\"urn:element:base\", mpls xmlns=\"urn:element:mpls\"");
}

TEST(WholeConfiguration, restconfs_data_is_around_all) {
  EXPECT_EQ(fault_of("{\"base:config\": {},\n\"ietf-restconf:data\": {}}"),
            "running:2: member ietf-restconf:data is not the only one of the file; expected it around all others");
  EXPECT_EQ(fault_of("{\"ietf-restconf:data\": {},\n\"base:config\": {}}"),
            "running:2: member config beside ietf-restconf:data; expected it around all others");
  EXPECT_EQ(fault_of("{\"ietf-restconf:data\": 5}"),
            "running:1: value without a name; expected a single value, or members of an object");
}

TEST(WholeConfiguration, what_is_the_elements_own_is_bounded) {
  element::ReadOptions small;
  small.largest = 200;
  const std::string fault = "running: the element's own nodes take more than 200 bytes; expected at most that";
  const std::string foreign(10'000, 'x');
  EXPECT_EQ(fault_of(base_xml("<x xmlns=\"urn:x\">" + foreign + "</x>"), small), "accepted");
  EXPECT_EQ(fault_of(base_json("\"x:x\": \"" + foreign + "\""), small), "accepted");
  EXPECT_EQ(fault_of(base_xml("<vlan><id>" + foreign + "</id></vlan>"), small), fault);
  EXPECT_EQ(fault_of(base_json("\"vlan\": [{\"id\": \"" + foreign + "\"}]"), small), fault);
  std::string vlans;
  for (int i = 1; i < 20; ++i) vlans += fmt::format("<vlan><id>{}</id></vlan>", i);
  EXPECT_EQ(fault_of(base_xml(vlans), small), fault);
}

TEST(WholeConfiguration, a_name_in_json_is_bounded) {
  const std::string name(std::size_t{2} << 20, 'x');
  EXPECT_EQ(fault_of("{\n\"" + name + "\": 1}"),
            "running:2: name, value or blanks of more than 1048576 bytes; expected fewer");
}

}  // namespace
