// Both formats as their readers see them: SVG through an XML parser, the page through an HTML parser.

#include <gtest/gtest.h>

#include <sstream>

#include "source_dir.h"
#include "tests/element/temporary_file.h"
#include "tests/support/process.h"
#include "tests/vlan_map/drawn_map.h"
#include "vlan_map/conflicts.h"
#include "vlan_map/html.h"
#include "vlan_map/map.h"
#include "vlan_map/svg.h"

namespace {

using vlan_map::Map;

Lines lines_of(const std::string &text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

Lines read_by(const std::string &script, const std::string &document) {
  const TemporaryFile file(document);
  const ProcessResult result =
      run_process("python3 " SOURCE_DIR "/tests/vlan_map/" + script + " <" + file.path().string());
  EXPECT_EQ(result.status, 0) << document;
  return lines_of(result.output);
}

/// The lines that begin with `what` and a colon, without that.
Lines only(const Lines &lines, const std::string &what) {
  Lines found;
  for (const std::string &line : lines) {
    if (line.starts_with(what + ": ")) found.push_back(line.substr(what.size() + 2));
  }
  return found;
}

/// A commit with a conflict on ge-1, a limit that is about no port, a moved claim, and a port outside the profile.
Map refused_commit() {
  Map map = map_of({on_vpws("ge-1") + "/dot1q = 5", domain + "/dot1q = 6", on_vpls("ge-1")},
                   {on_vpws("ge-1") + "/dot1q = 6", domain + "/dot1q = 6", on_vpls("ge-1"), on_vpws("service-port-7")});
  map.decision = host::Decision::rejected;
  report::Finding same_vlan = finding("same VLAN", {on_vpws("ge-1"), on_vpls("ge-1")});
  same_vlan.rule = "access-same-dot1q";
  same_vlan.from_device = true;
  same_vlan.place = {"candidate.json", 7};
  same_vlan.advice.alternatives = {{{{report::ChangeStatus::changed, on_vpws("ge-1"), {}, {}, {}, {}}, {}}}};
  report::Finding limit;
  limit.message = "too many";
  limit.is_warning = true;
  map.conflicts = find_conflicts({same_vlan, limit}, map.ports);
  map.ports[0].claims[0].place = report::FilePlace{"candidate.json", 12};
  map.complete = false;
  return map;
}

const std::string south = "vpws-group branches vpn south, ";

TEST(Svg, tells_in_words_what_it_shows) {
  EXPECT_EQ(
      read_by("svg_text.py", to_svg(refused_commit())),
      (Lines{"document: VLANs by port",
             "described: The commit is rejected: 1 rejection, 1 warning; the search was ended before all was found. "
             "4 ports, 3 claims: 1 added, 1 changed, 0 removed. rejection 1: same VLAN. warning 2: too many.",
             "group: ge-1: 2 claims; rejection 1: same VLAN; free VLANs: 1-5, 7-4094",
             "img: Before this commit, VLAN 5 - ge-1: " + south +
                 "VLAN 6, changed, was VLAN 5; rejection 1: same VLAN (candidate.json:12)",
             "img: ge-1: " + south + "VLAN 6, changed, was VLAN 5; rejection 1: same VLAN (candidate.json:12)",
             "img: ge-1: vpls-group campus vpn data, VLAN 6, unchanged; rejection 1: same VLAN",
             "group: ge-2: 0 claims; free VLANs: 1-4094",
             "group: ge-3: 0 claims; free VLANs: 1-4094",
             "group: service-port-7: 1 claim, not in the element's profile; free VLANs: none",
             "img: service-port-7: " + south + "whole port, added",
             "title: VLANs by port",
             "verdict rejected: The commit is rejected: 1 rejection, 1 warning; the search was ended before all was "
             "found.",
             "note: 4 ports, 3 claims: 1 added, 1 changed, 0 removed",
             "note: same VLAN (access-same-dot1q) candidate.json:7",
             "note: too many",
             "note: VPWS",
             "note: VPLS",
             "note: VLAN-manager member",
             "note: LDP uplink",
             "note: IGMP snooping",
             "note: one VLAN, too narrow for the scale",
             "note: few VLANs, likewise",
             "note: added by this commit",
             "note: changed: its new place",
             "note: its place before",
             "note: removed",
             "note: in a conflict that rejects the commit",
             "note: in a warning",
             "note: free VLANs",
             "port: ge-1",
             "port: ge-2",
             "port: ge-3",
             "port unknown: service-port-7"}));
}

TEST(Svg, a_long_message_goes_on_in_the_next_line) {
  Map map = map_of({}, {});
  std::string message = "A message";
  for (int i = 0; i < 40; ++i) message += " that goes on";
  map.conflicts.resize(1);
  map.conflicts[0].finding.message = message;
  Lines notes = only(read_by("svg_text.py", to_svg(map)), "note");
  ASSERT_GT(notes.size(), 3u);
  EXPECT_EQ(notes[1] + " " + notes[2] + " " + notes[3], message);
}

TEST(Page, has_articles_of_conflicts_and_tables_of_claims) {
  const Lines lines = read_by("page_text.py", to_html(refused_commit()));
  EXPECT_EQ(only(lines, "conflict"),
            (Lines{"!!1 rejection 1 access-same-dot1q | same VLAN | The element says it on this commit. | Involved | " +
                       on_vpws("ge-1") + ": in the running configuration ge-1: VLAN 6 | " + on_vpls("ge-1") +
                       ": in the running configuration ge-1: VLAN 6 | to do: take back ~ " + on_vpws("ge-1") +
                       " | Why: vpnval explain access-same-dot1q",
                   "!2 warning 2 | too many | It comes once the others are solved. Its claims were not looked for."}));
  EXPECT_EQ(only(lines, "port"),
            (Lines{"ge-1 !!1 | 2 claims: 0 added, 1 changed, 0 removed. Free VLANs: 1-5, 7-4094.",
                   "ge-2 | 0 claims: 0 added, 0 changed, 0 removed. Free VLANs: 1-4094.",
                   "ge-3 | 0 claims: 0 added, 0 changed, 0 removed. Free VLANs: 1-4094.",
                   "service-port-7 | 1 claim: 1 added, 0 changed, 0 removed, not in the element's profile. Free VLANs: "
                   "none."}));
  const std::string head = "Claimed by | VLANs | This commit | File and line | Conflicts";
  EXPECT_EQ(
      only(lines, "claim"),
      (Lines{head,
             "vpws-group branches vpn south | VLAN 6 | changed, was VLAN 5 | candidate.json:12 | rejection 1: same "
             "VLAN",
             "vpls-group campus vpn data | VLAN 6 | unchanged |  | rejection 1: same VLAN", head,
             "vpws-group branches vpn south | whole port | added |  | "}));
  EXPECT_EQ(only(lines, "mark").size(), 4u);
}

TEST(Page, a_long_list_of_parties_is_cut_and_what_makes_the_library_look_is_told_apart) {
  Lines members;
  for (int vlan = 1; vlan <= 14; ++vlan)
    members.push_back("/config/vlan{" + std::to_string(vlan) + "}/interface{ge-1}");
  Map map = map_of(members, members);
  report::Finding in_force = finding("too many", members);
  in_force.is_preexisting = true;
  in_force.triggers = finding("", {on_vpws("ge-2")}).parties;
  map.conflicts = find_conflicts({in_force}, map.ports);
  const std::string article = only(read_by("page_text.py", to_html(map)), "conflict").front();
  EXPECT_NE(article.find("The running configuration has this fault."), std::string::npos);
  EXPECT_NE(article.find("/config/vlan{12}/interface{ge-1}: in the running configuration ge-1: VLAN 12 | and 2 more | "
                         "Makes the library look | " +
                         on_vpws("ge-2") +
                         ": in the running configuration | to do: mend the fault in the running "
                         "configuration first"),
            std::string::npos)
      << article;
}

TEST(Page, tells_its_script_what_to_draw) {
  EXPECT_EQ(only(read_by("page_text.py", to_html(refused_commit())), "data"),
            (Lines{R"({"lastVlan": 4094, "names": ["branches", "south", "campus", "data"], "ports": [)"
                   R"({"name": "ge-1", "inProfile": true, "conflicts": [0], "free": [[1, 5], [7, 4094]], "claims": [)"
                   R"([0, 2, 6, 6, 0, 1, [0], 5, 5], [1, 0, 6, 6, 2, 3, [0]]]}, )"
                   R"({"name": "ge-2", "inProfile": true, "conflicts": [], "free": [[1, 4094]], "claims": []}, )"
                   R"({"name": "ge-3", "inProfile": true, "conflicts": [], "free": [[1, 4094]], "claims": []}, )"
                   R"({"name": "service-port-7", "inProfile": false, "conflicts": [], "free": [], "claims": [)"
                   R"([0, 1, 0, 4094, 0, 1, []]]}], "conflicts": [)"
                   R"({"isWarning": false, "claims": [0, 1], "ports": [0], "overlaps": [[0, 6, 6]]}, )"
                   R"({"isWarning": true, "claims": [], "ports": [], "overlaps": []}]})"}));
}

TEST(Page, holds_all_that_it_needs_and_allows_no_more) {
  const Lines lines = read_by("page_text.py", to_html(refused_commit()));
  EXPECT_EQ(only(lines, "policy"), (Lines{"default-src 'none'; style-src DIGEST DIGEST; script-src DIGEST; base-uri "
                                          "'none'; form-action 'none'"}));
  EXPECT_EQ(only(lines, "allows what it holds"), (Lines{"True"}));
  EXPECT_EQ(only(lines, "outside"), (Lines{}));
  EXPECT_EQ(only(lines, "inline"), (Lines{}));
}

TEST(Page, an_accepted_commit_has_no_conflicts_to_show) {
  const Lines lines = read_by("page_text.py", to_html(map_of({}, {on_vpws("ge-1")})));
  EXPECT_EQ(only(lines, "conflict"), (Lines{}));
  EXPECT_EQ(only(lines, "claim").size(), 2u);
}

/// Names that a configuration may hold, or that some other source of a map may, and how they are shown.
const std::vector<std::pair<std::string, std::string>> hostile_names{
    {"</script><script>alert(1)</script>", "</script><script>alert(1)</script>"},
    {"]]>", "]]>"},
    {"<!--", "<!--"},
    {"\" onload=\"alert(1)", "\" onload=\"alert(1)"},
    {"</style>&amp;", "</style>&amp;"},
    {"</title></svg>", "</title></svg>"},
    {std::string("a\0\x1b[1m\n", 7), "a\\x00\\x1b[1m\\n"},
    {"\xff\xc0\xbc", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"},
    {"\xe2\x80\xaegnp", "\\u202egnp"},
};

Map map_of_hostile(const std::string &name) {
  Map map;
  map.title = name;
  map.conflicts.resize(1);
  map.conflicts[0].finding.message = name;
  map.conflicts[0].ports = {0};
  map.ports.push_back({name, false, {}, {0}});
  vlan_map::Claim claim;
  claim.group = name;
  claim.vpn = name;
  claim.vlans = {5, 5};
  claim.conflicts = {0};
  map.ports[0].claims.push_back(claim);
  return map;
}

TEST(Pictures, no_name_breaks_out_of_its_place) {
  for (const auto &[name, shown] : hostile_names) {
    const std::string sentence = shown + ": vpws-group " + shown + " vpn " + shown + ", VLAN 5, unchanged";
    const Map map = map_of_hostile(name);
    const Lines svg = read_by("svg_text.py", to_svg(map));
    EXPECT_EQ(only(svg, "document"), (Lines{shown}));
    EXPECT_EQ(only(svg, "img"), (Lines{sentence + "; rejection 1: " + shown}));
    EXPECT_EQ(only(svg, "port unknown"), (Lines{shown}));
    EXPECT_EQ(only(svg, "outside"), (Lines{}));

    const Lines page = read_by("page_text.py", to_html(map));
    EXPECT_EQ(only(page, "mark"), (Lines{sentence + "; rejection 1: " + shown}));
    EXPECT_EQ(only(page, "claim").back(),
              "vpws-group " + shown + " vpn " + shown + " | VLAN 5 | unchanged |  | rejection 1: " + shown);
    EXPECT_TRUE(only(page, "port").back().starts_with(shown + " !!1 | 1 claim"));
    EXPECT_EQ(only(page, "allows what it holds"), (Lines{"True"}));
    EXPECT_EQ(only(page, "inline"), (Lines{}));
  }
}

}  // namespace
