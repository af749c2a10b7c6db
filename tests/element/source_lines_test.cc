#include "element/input/source_lines.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "configuration_text.h"
#include "drawn_configuration.h"
#include "element/input/configuration.h"
#include "element/input/source_tree.h"
#include "written_configuration.h"

namespace {

using element::SourceLines;
using Line = std::optional<std::size_t>;

Line line_of(const SourceLines &lines, const std::string &path) {
  return lines.line_of(element::parse_path(test_schema(), path));
}

struct Place {
  std::string path;
  Line line;
};

struct Text {
  const char *name;
  std::string text;
  std::vector<Place> places;
};

void expect_places(const std::vector<Text> &rows) {
  for (const auto &[name, text, places] : rows) {
    const SourceLines lines = element::parse_configuration_file(test_schema(), text, "candidate").source.lines;
    for (const auto &[path, line] : places) EXPECT_EQ(line_of(lines, path), line) << name << ": " << path;
  }
}

TEST(SourceLines, containers_lists_entries_and_leafs) {
  const std::string vpn = "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}";
  expect_places({{"XML",
                  l2vpn_xml("<vpws-group>\n<name>g</name>\n<vpn>\n<name>v</name>\n"
                            "<neighbor><address>10.0.0.1</address>\n<pw-id>7</pw-id></neighbor>\n"
                            "<access-interface>\n<name>p</name><encapsulation>\n<untagged\n/></encapsulation>\n"
                            "</access-interface></vpn></vpws-group>"),
                  {{"/mpls", 1},
                   {"/mpls/l2vpn-config/l2vpn", 1},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group", 2},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group{g}", 2},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group{g}/name", 3},
                   {vpn, 4},
                   {vpn + "/neighbor{10.0.0.1}", 6},
                   {vpn + "/neighbor{10.0.0.1}/pw-id", 7},
                   {vpn + "/access-interface{p}/name", 9},
                   {vpn + "/access-interface{p}/encapsulation/untagged", 10}}},
                 {"JSON",
                  l2vpn_json("\"vpws-group\":\n[\n{\"name\": \"g\",\n\"vpn\": [{\n\"name\": \"v\",\n"
                             "\"neighbor\": [{\"address\": \"10.0.0.1\",\n\"pw-id\": 7}],\n"
                             "\"access-interface\": [\n{\"name\": \"p\", \"encapsulation\":\n{\"untagged\"\n:\n[null]"
                             "\n}}]}]}]"),
                  {{"/mpls", 1},
                   {"/mpls/l2vpn-config/l2vpn", 1},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group", 2},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group{g}", 4},
                   {"/mpls/l2vpn-config/l2vpn/vpws-group{g}/name", 4},
                   {vpn, 5},
                   {vpn + "/neighbor{10.0.0.1}", 7},
                   {vpn + "/neighbor{10.0.0.1}/pw-id", 8},
                   {vpn + "/access-interface{p}", 10},
                   {vpn + "/access-interface{p}/encapsulation", 10},
                   {vpn + "/access-interface{p}/encapsulation/untagged", 11}}}});
}

TEST(SourceLines, entries_are_told_by_their_keys_wherever_these_stand) {
  const std::string encapsulation =
      "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{v}/access-interface{p}/encapsulation/dot1q-range";
  const std::vector<Place> places{{encapsulation + "{1 9}", 3},
                                  {encapsulation + "{2 9}", 4},
                                  {encapsulation + "{1 8}", 5},
                                  {encapsulation + "{2 8}", std::nullopt},
                                  {encapsulation + "{1 9}/max", 3}};
  expect_places({{"XML",
                  l2vpn_xml("<vpws-group><vpn><access-interface><name>p</name><encapsulation>\n"
                            "<dot1q-range><min>1</min><max>9</max></dot1q-range>\n"
                            "<dot1q-range><min>2</min><max>9</max></dot1q-range>\n"
                            "<dot1q-range><min>1</min><max>8</max></dot1q-range>\n"
                            "</encapsulation></access-interface><name>v</name></vpn><name>g</name></vpws-group>"),
                  places},
                 {"JSON",
                  l2vpn_json("\"vpws-group\": [{\"vpn\": [{\"access-interface\": [{\"encapsulation\": "
                             "{\"dot1q-range\": [\n{\"max\": 9, \"min\": 1},\n{\"min\": 2, \"max\": 9},\n"
                             "{\"min\": 1, \"max\": 8}\n]}, \"name\": \"p\"}], \"name\": \"v\"}], \"name\": \"g\"}]"),
                  places}});
}

TEST(SourceLines, keys_are_compared_as_the_values_that_they_stand_for) {
  const std::vector<Place> vlans{{"/config/vlan{5}", 2}, {"/config/vlan{50}", 3}, {"/config/vlan{500}", 4}};
  expect_places(
      {{"numbers in XML",
        base_xml("<vlan><id>005</id></vlan>\n<vlan><id> +50<!-- -->\n</id></vlan><vlan><id>500</id></vlan>"), vlans},
       {"numbers in JSON", base_json("\"vlan\": [{\"id\": 5},\n{\"id\": 50e0},\n{\"id\": 5E2}]"), vlans},
       {"texts are taken to the letter",
        base_xml("<vlan><id>1</id><interface><name>07</name></interface>\n<interface><name> 7</name></interface>\n"
                 "<interface><name>+7</name></interface>\n<interface><name>7</name></interface></vlan>"),
        {{"/config/vlan{1}/interface{7}", 5},
         {"/config/vlan{1}/interface{07}", 2},
         {"/config/vlan{1}/interface{\" 7\"}", 3},
         {"/config/vlan{1}/interface{+7}", 4}}}});
}

TEST(SourceLines, names_with_escapes) {
  const auto interface = [](const std::string &key) { return "/config/vlan{1}/interface{\"" + key + "\"}"; };
  const auto xml = [](const std::string &name) { return "<interface><name>" + name + "</name></interface>\n"; };
  expect_places(
      {{"XML",
        base_xml("<vlan><id>1</id>\n" + xml("&lt;&amp;&gt;&quot;&apos;") + xml("&#x20ac;&#233;&#x1F600;&#36;") +
                 xml("a<![CDATA[<!-- & -->]]>b") + xml("]]&gt; b") + xml("c&#13;\r\n") + "</vlan>"),
        {{interface("<&>\\\"'"), 3},
         {interface("\xe2\x82\xac\xc3\xa9\xf0\x9f\x98\x80$"), 4},
         {interface("a<!-- & -->b"), 5},
         {interface("]]> b"), 6},
         {interface("c\r\n"), 7}}},
       {"JSON",
        base_json("\"vlan\": [{\"id\": 1, \"interface\": [\n{\"name\": \"\\\"\\\\\\/\\n\"},\n"
                  "{\"name\": \"\\u20ac\"},\n{\"n\\u0061me\": \"{[,]}\"}]}]"),
        {{interface("\\\"\\\\/\n"), 3}, {interface("\xe2\x82\xac"), 4}, {interface("{[,]}"), 5}}}});
}

TEST(SourceLines, names_with_prefixes) {
  const std::vector<Place> places{{"/config/vlan{5}/interface{a}", 2}, {"/base:config/base:vlan{5}/id", 1}};
  expect_places(
      {{"XML",
        "<b:config xmlns:b='urn:element:base' xmlns:c='urn:element:base'><c:vlan ><b:id>5</b:id>\n"
        "<c:interface ><name xmlns='urn:element:base'>a</name></c:interface></c:vlan></b:config >",
        places},
       {"JSON", "{\"base:config\": {\"base:vlan\": [{\"base:id\": 5,\n\"interface\": [{\"base:name\": \"a\"}]}]}}",
        places}});
}

TEST(SourceLines, what_stands_around_the_elements) {
  const std::vector<Place> places{{"/config", 4}, {"/config/vlan{5}", 5}, {"/mpls/ldp/interface{a}", 8}};
  const std::string row = base_xml("<vlan><id>5</id></vlan>") +
                          "\n<mpls xmlns=\"urn:element:mpls\"><ldp xmlns=\"urn:element:ldp\">\n"
                          "<interface><name>a</name></interface></ldp></mpls>";
  expect_places(
      {{"a row of elements", "\n\n\n" + row, places},
       {"byte order mark and declaration", "\xef\xbb\xbf\r\n<?xml version=\"1.0\"\nencoding=\"latin1\"?>\r\n" + row,
        places},
       {"comments and instructions", "<!-- - <config>\n --><?x\n?><!--\n-->" + row + "<!-- <config> --><?x?>", places},
       {"a reply",
        "<rpc-reply xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'\n message-id='1'>\n<data>\n" + row +
            "</data></rpc-reply>\n]]>]]>\n",
        places},
       {"chunks",
        "\n#2\n<c\n#" + std::to_string(row.size() + 15) + "\nonfig>" + row + "</config>\n##\n",
        {{"/config", 5}, {"/config/vlan{5}", 6}, {"/mpls/ldp/interface{a}", 9}}},
       {"nodes of other modules",
        "\n\n\n" + base_xml("<x xmlns='urn:x'>\n</x><vlan><id>5</id></vlan>"),
        {{"/config", 4}, {"/config/vlan{5}", 6}}},
       {"NETCONF's wrapper",
        "<config xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'\n\n a='>'>\n" + row + "\n</config>", places},
       {"NETCONF's wrapper with a prefix",
        "<nc:data xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0'><!--\n\n\n-->" + row + "</nc:data>", places},
       {"attributes with brackets",
        "<mpls xmlns='urn:element:mpls' xmlns:a='&lt;!--' xmlns:b=\"/>\"\n><ldp xmlns='urn:element:ldp'\n>\n"
        "<interface><name>a</name></interface></ldp></mpls>",
        {{"/mpls", 1}, {"/mpls/ldp", 2}, {"/mpls/ldp/interface{a}", 4}}}});
}

TEST(SourceLines, of_json_after_a_byte_order_mark) {
  expect_places({{"JSON", "\xef\xbb\xbf\r\n\n" + base_json("\"vlan\": [{\"id\": 5}]"), {{"/config/vlan{5}", 4}}}});
}

TEST(SourceLines, what_the_file_does_not_hold) {
  const std::vector<Place> nowhere{{"/", std::nullopt},
                                   {"/mpls", std::nullopt},
                                   {"/config/vlan{6}", std::nullopt},
                                   {"/config/vlan{5}/interface{a}", std::nullopt},
                                   {"/config/vlan{5}/interface", std::nullopt},
                                   {"/config/vlan/id", std::nullopt},
                                   {"/internal/int-ldp-intf-l3", std::nullopt}};
  expect_places({{"XML", base_xml("<vlan><id>5</id></vlan>"), nowhere},
                 {"JSON", base_json("\"vlan\": [{\"id\": 5}]"), nowhere},
                 {"an empty configuration in XML", "<config xmlns=\"urn:element:base\"/>", nowhere},
                 {"an empty configuration in JSON", "{}", nowhere},
                 {"an empty list", base_json("\"vlan\": []"), nowhere}});
}

bool is_whole_list(const std::string &path) {
  const element::PathStep last = element::parse_path(test_schema(), path).back();
  return last.schema->kind == element::NodeKind::list && last.keys.empty();
}

RC_GTEST_PROP(SourceLinesProperty, every_node_is_found_at_its_line, ()) {
  const element::Tree tree = tree_of(*rc::gen::nonEmpty(drawn_configuration()));
  for (const auto writer : {written_as_xml, written_as_json}) {
    const WrittenConfiguration written = writer(tree, *rc::gen::arbitrary<std::uint32_t>());
    element::InputPieces input(written.text, "candidate");
    const SourceLines lines(read_own_configuration(test_schema(), input, {}).tree);
    const auto by_path = lines_by_path(lines.tree());
    for (const auto &[path, line] : written.lines) {
      RC_LOG() << path << " in\n" << written.text << '\n';
      RC_ASSERT(line_of(lines, path) == Line(line));
      const auto found = by_path.find(path);
      // XML has no node for a whole list.
      const bool is_found = found != by_path.end() && found->second == line;
      RC_ASSERT(is_found || (found == by_path.end() && is_whole_list(path)));
    }
  }
}

}  // namespace
