#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "rules/rule.h"
#include "tests/cli/commit_folder.h"

namespace {

TEST(ExplainCommand, a_page_tells_what_why_and_what_to_do) {
  const Outcome outcome = run_with_answers({"explain", "pw-id-twice"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, R"(pw-id-twice

  The PW ID %u must be unique per neighbor

Rejection by vpn_peer_valp

What provokes it
  Two pseudowires towards one neighbour have the same pw-id, whichever family
  they belong to. Towards different neighbours a pw-id may be used again.

Why the element refuses it
  The two ends of a pseudowire find each other by pw-id: it is what the label is
  offered under. With two of the same number the neighbour could not tell which
  label belongs to which service, and the frames of one would come out in the
  other.

What to do
  Give one of the two another pw-id, on both ends. The message tells the pw-id
  alone: look for it at the neighbours and backup neighbours of all VPLS and
  VPWS VPNs.

Examples
  examples/pw-id-twice-towards-a-neighbour

Rule
  src/lib/config_validate_comn/rules/pseudowire_rules.cc
)");
}

TEST(ExplainCommand, a_warning_has_a_meaning_and_no_refusal) {
  const std::string page = run_with_answers({"explain", "member-on-uplink"}).out;
  EXPECT_NE(page.find("\nWarning by vlm_memb_valp\n"), std::string::npos) << page;
  EXPECT_NE(page.find("\nWhat it means\n"), std::string::npos) << page;
  EXPECT_EQ(page.find("refuses"), std::string::npos) << page;
}

TEST(ExplainCommand, a_message_without_an_example_says_so) {
  EXPECT_NE(run_with_answers({"explain", "interface-information"}).out.find("\nExamples\n  none\n"), std::string::npos);
}

TEST(ExplainCommand, the_prose_of_a_page_fits_a_terminal) {
  for (const rules::Rule &rule : rules::all_rules()) {
    std::istringstream page(run_with_answers({"explain", std::string(rule.id)}).out);
    for (std::string line; std::getline(page, line);) {
      if (line == "  " + std::string(rule.message)) continue;
      EXPECT_LE(line.size(), 80u) << line;
    }
  }
}

TEST(ExplainCommand, without_a_rule_lists_every_id_with_its_message) {
  const Outcome outcome = run_with_answers({"explain"});
  EXPECT_EQ(outcome.status, 0);
  std::istringstream lines(outcome.out);
  for (const rules::Rule &rule : rules::all_rules()) {
    std::string line;
    std::getline(lines, line);
    EXPECT_TRUE(line.starts_with(std::string(rule.id) + " ")) << line;
    EXPECT_TRUE(line.ends_with("  " + std::string(rule.severity == rules::Severity::warning ? "warning: " : "") +
                               std::string(rule.message)))
        << line;
  }
  EXPECT_EQ(lines.peek(), EOF);
}

TEST(ExplainCommand, takes_the_text_of_a_message_in_place_of_an_id) {
  EXPECT_EQ(run_with_answers({"explain", "The PW ID 210 must be unique per neighbor"}).out,
            run_with_answers({"explain", "pw-id-twice"}).out);
}

TEST(ExplainCommand, a_text_of_two_points_has_two_pages) {
  const std::string text(rules::find_rule("member-on-uplink")->message);
  EXPECT_EQ(run_with_answers({"explain", text}).out, run_with_answers({"explain", "access-on-uplink"}).out + "\n" +
                                                         run_with_answers({"explain", "member-on-uplink"}).out);
}

TEST(ExplainCommand, an_unknown_rule_is_a_usage_error_that_names_what_is_near) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"pw-id-twise", "there is no rule \"pw-id-twise\"; did you mean pw-id-twice? (vpnval explain lists all)"},
      {"vpn_limit", "there is no rule \"vpn_limit\"; did you mean vpn-limit? (vpnval explain lists all)"},
      {"no such words", "there is no rule \"no such words\" (vpnval explain lists all)"},
      {std::string(5000, 'x'), "there is no rule \"" + std::string(5000, 'x') + "\" (vpnval explain lists all)"},
      {"\x1b[31m", "there is no rule \"\\x1b[31m\" (vpnval explain lists all)"},
  };
  for (const auto &[rule, error] : rows) {
    const Outcome outcome = run_with_answers({"explain", rule});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vpnval: " + error + "\n");
  }
}

std::vector<std::string> ids_in(const std::string &index) {
  std::vector<std::string> ids;
  std::istringstream lines(index);
  for (std::string line; std::getline(lines, line);) ids.push_back(line.substr(0, line.find(' ')));
  return ids;
}

TEST(ExplainCommand, a_validation_point_stands_for_its_rules) {
  EXPECT_EQ(ids_in(run_with_answers({"explain", "vpn_peer_valp"}).out),
            (std::vector<std::string>{"pseudowire-limit", "pw-id-twice", "pw-id-moved"}));
}

TEST(ExplainCommand, words_find_the_rules_whose_pages_have_them_all) {
  const auto found = ids_in(run_with_answers({"explain", "UPLINK", "warning"}).out);
  EXPECT_EQ(found.size(), ids_in(run_with_answers({"explain", "warning uplink"}).out).size());
  const auto uplinks = ids_in(run_with_answers({"explain", "uplink"}).out);
  for (const std::string id : {"access-on-uplink", "member-on-uplink"}) {
    EXPECT_NE(std::find(uplinks.begin(), uplinks.end(), id), uplinks.end()) << id;
  }
  EXPECT_EQ(run_with_answers({"explain", "find", "each", "other", "pw-id"}).out,
            run_with_answers({"explain", "pw-id-twice"}).out);
}

TEST(ExplainCommand, several_ids_have_their_pages_one_after_the_other) {
  EXPECT_EQ(run_with_answers({"explain", "vpn-limit", "pw-id-twice"}).out,
            run_with_answers({"explain", "vpn-limit"}).out + "\n" + run_with_answers({"explain", "pw-id-twice"}).out);
}

TEST(ExplainCommand, a_page_in_markdown_links_into_the_tree) {
  EXPECT_EQ(run_with_answers({"explain", "--format", "markdown", "pw-id-twice"}).out, R"(# pw-id-twice

    The PW ID %u must be unique per neighbor

Rejection by `vpn_peer_valp`.

## What provokes it

Two pseudowires towards one neighbour have the same pw-id, whichever family they belong to. Towards different neighbours a pw-id may be used again.

## Why the element refuses it

The two ends of a pseudowire find each other by pw-id: it is what the label is offered under. With two of the same number the neighbour could not tell which label belongs to which service, and the frames of one would come out in the other.

## What to do

Give one of the two another pw-id, on both ends. The message tells the pw-id alone: look for it at the neighbours and backup neighbours of all VPLS and VPWS VPNs.

## Examples

- [pw-id-twice-towards-a-neighbour](../../examples/pw-id-twice-towards-a-neighbour)

## Rule

[`config_validate_comn/rules/pseudowire_rules.cc`](../../src/lib/config_validate_comn/rules/pseudowire_rules.cc)
)");
}

TEST(ExplainCommand, a_page_in_markdown_of_a_warning_and_of_a_message_without_an_example) {
  const std::string warning = run_with_answers({"explain", "--format", "markdown", "member-on-uplink"}).out;
  EXPECT_NE(warning.find("\n\nWarning by `vlm_memb_valp`.\n\n"), std::string::npos) << warning;
  EXPECT_NE(warning.find("\n\n## What it means\n\n"), std::string::npos) << warning;

  const std::string page = run_with_answers({"explain", "--format", "markdown", "interface-information"}).out;
  EXPECT_NE(page.find("\n\n## Examples\n\nNone.\n\n## Rule\n\n"), std::string::npos) << page;
}

TEST(ExplainCommand, without_a_rule_prints_an_index_in_markdown) {
  const std::string index = run_with_answers({"explain", "--format", "markdown"}).out;
  EXPECT_EQ(index.rfind("# Messages\n\nEvery message of the plug-in: ", 0), 0u) << index;
  EXPECT_NE(index.find(
                R"(
## `vpn_overflow_valp`

| Id | Message | What provokes it | Rule in `src/lib` | Examples |
|---|---|---|---|---|
| [vpn-limit](vpn-limit.md) | `Maximum number of VPNs has been exceeded. Attempt to configure %d of %d allowed` | VPLS and VPWS VPNs together are more than the card allows. | `config_validate_vpn/drivers/vpn_limit.cc` | [vpn-count-above-limit](../../examples/vpn-count-above-limit) |

## `vpn_name_valp`
)"),
            std::string::npos)
      << index;
  EXPECT_NE(index.find("| [member-on-uplink](member-on-uplink.md) | Warning: `Some MPLS"), std::string::npos) << index;
  EXPECT_NE(index.find("`config_validate_vpls/vpls_interface_kind.cc` | none |\n"), std::string::npos) << index;
  for (const rules::Rule &rule : rules::all_rules()) {
    EXPECT_NE(index.find("\n| [" + rule.id + "](" + rule.id + ".md) | "), std::string::npos) << rule.id;
  }
}

}  // namespace
