#include <gtest/gtest.h>

#include <sstream>

#include "report/ci/markdown.h"
#include "report/escape/markdown.h"
#include "report/escape/shell_word.h"
#include "tests/cli/sample_findings.h"
#include "tests/support/process.h"

namespace {

std::string markdown(const std::vector<report::CommitReport> &commits) {
  std::ostringstream out;
  report::write_markdown(out, commits);
  return out.str();
}

std::size_t count(const std::string &text, const std::string &part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
  return found;
}

report::Finding next(report::Finding finding) {
  finding.from_device = false;
  return finding;
}

TEST(MarkdownOutput, an_accepted_commit_is_in_the_sum_alone) {
  EXPECT_EQ(markdown({decided({})}), "**vpnval, 1 commit: 1 accepted**\n");
}

TEST(MarkdownOutput, each_message_has_its_explanation_folded) {
  EXPECT_EQ(
      markdown({decided({bare(same_dot1q()), next(bare(uplink_warning()))})}),
      "**vpnval, 1 commit: 1 rejected**\n"
      "\n### night/42: rejected\n"
      "\nThe device says:\n"
      "\n**rejected (access-same-dot1q)** vpls-group campus vpn data and vpws-group branches vpn south must not be "
      "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
      "\n<details><summary>details</summary>\n\n<pre>\n"
      "   at /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
      "(night/42/candidate.xml:11)\n"
      "</pre>\n\n</details>\n"
      "\nIt would say next:\n"
      "\n**warning (member-on-uplink)** Some MPLS VPN's have access and uplink interfaces in common.\n"
      "\n<details><summary>details</summary>\n\n<pre>\n"
      "   at /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable (night/42/candidate.xml:40)\n"
      "</pre>\n\n</details>\n");
}

TEST(MarkdownOutput, what_could_not_be_decided_and_what_is_refused_is_told) {
  report::CommitReport broken;
  broken.name = "night/43";
  broken.error = "night/43/candidate.xml:7: what is wrong";
  report::CommitReport refused = decided({});
  refused.refusal = "nothing to commit";
  EXPECT_EQ(markdown({broken, refused}),
            "**vpnval, 2 commits: 1 not decided, 1 accepted**\n"
            "\n### night/43: not decided\n"
            "\nnight/43/candidate.xml&#58;7&#58; what is wrong\n"
            "\n### night/42: accepted\n"
            "\nrefused&#58; nothing to commit\n");
}

TEST(MarkdownOutput, what_is_suppressed_says_by_what) {
  report::Finding known = same_dot1q();
  known.suppressed = report::Suppressed{{"known.txt", 3}, "moves *tonight*"};
  const std::string text = markdown({decided({known})});
  EXPECT_NE(text.find("\nSuppressed by known.txt&#58;3, because moves &#42;tonight&#42;\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("<details>"), std::string::npos);
}

TEST(MarkdownOutput, long_lists_are_cut_with_the_number_left_out) {
  const std::string findings = markdown({decided(std::vector<report::Finding>(14, bare(same_dot1q())))});
  EXPECT_EQ(count(findings, "**rejected (access-same-dot1q)**"), 10u);
  EXPECT_NE(findings.find("\n... and 4 more\n"), std::string::npos);
  const std::string commits = markdown(std::vector<report::CommitReport>(25, decided({bare(same_dot1q())})));
  EXPECT_EQ(count(commits, "\n### "), 20u);
  EXPECT_TRUE(commits.ends_with("\nLeft out: 5 more commits\n"));
}

TEST(MarkdownOutput, a_comment_is_never_longer_than_one_may_be) {
  report::Finding wordy = bare(same_dot1q());
  wordy.message.assign(100'000, '*');
  wordy.path = "/" + std::string(100'000, '<');
  const std::string text = markdown(std::vector<report::CommitReport>(5, decided({wordy, wordy})));
  EXPECT_LT(text.size(), 65'536u);
  EXPECT_GT(text.size(), 20'000u);
}

TEST(MarkdownOutput, names_mark_nothing_up_and_close_nothing) {
  report::Finding finding = hostile();
  finding.path = "/a{</pre></details><script>}";
  finding.parties.clear();
  finding.conflicts.clear();
  const std::string text = markdown({decided({finding})});
  EXPECT_EQ(count(text, "</pre>"), 1u) << text;
  EXPECT_EQ(text.find("<script>"), std::string::npos);
  const std::string unfolded = text.substr(0, text.find("<details>"));
  for (const std::string mark : {"[", "](", "https:", "*/", "`"}) {
    EXPECT_EQ(unfolded.find(mark), std::string::npos) << mark << unfolded;
  }
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
}

TEST(Markdown, punctuation_becomes_references_and_steering_characters_show) {
  EXPECT_EQ(report::to_markdown("a_b*c `d` [e](f) <g> #1 @me | ~x~ !"),
            "a&#95;b&#42;c &#96;d&#96; &#91;e&#93;(f) &#60;g&#62; &#35;1 &#64;me &#124; &#126;x&#126; &#33;");
  EXPECT_EQ(report::to_markdown("\u202e\x1b\n"), "&#92;u202e&#92;x1b&#92;n");
  EXPECT_EQ(report::to_markdown("caf\xc3"), "caf\xef\xbf\xbd");
  EXPECT_EQ(report::to_markdown("Zürich"), "Zürich");
}

TEST(ShellWord, a_shell_reads_every_word_back) {
  for (const std::string text : {"plain/a-b_c.xml", "", "a b", "it's", "$HOME `x` \"y\" \\", "*?[]{}~!&|;<>()#",
                                 "\x1b[31m'\\", "\u202eabc", "-x"}) {
    const std::string word = report::shell_word(text);
    EXPECT_EQ(run_process("bash <<'END'\nprintf %s " + word + "\nEND\n").output, text) << word;
    EXPECT_EQ(word.find('\x1b'), std::string::npos);
    EXPECT_EQ(word.find("\u202e"), std::string::npos);
  }
  EXPECT_EQ(report::shell_word("it's"), R"('it'\''s')");
  EXPECT_EQ(report::shell_word("\x1b'\n"), R"($'\x1b\'\x0a')");
  EXPECT_EQ(run_process("printf %s " + report::shell_word("a 'b' $c")).output, "a 'b' $c");
}

}  // namespace
