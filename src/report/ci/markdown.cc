#include "report/ci/markdown.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "report/decision_text.h"
#include "report/escape/markdown.h"
#include "report/escape/markup.h"
#include "report/passed_over.h"
#include "report/profile_faults.h"
#include "report/text/explanation_text.h"
#include "report/text/findings_text.h"

namespace report {
namespace {

constexpr std::size_t kLongestComment = 60'000;
constexpr std::size_t kLongestExplanation = 5'000;
constexpr std::size_t kMostCommits = 20;
constexpr std::size_t kMostFindings = 10;
/// A name or message of more characters is cut.
constexpr std::size_t kLongestText = 2'000;

std::string inline_text(const std::string &text) {
  if (text.size() <= kLongestText) return to_markdown(text);
  return to_markdown(text.substr(0, kLongestText)) + " ...";
}

std::string_view state_of(const CommitReport &commit) {
  return commit.decision ? decision_text(*commit.decision) : std::string_view("not decided");
}

/// "7 commits: 1 rejected, 2 not decided, 4 accepted", what is worst first.
std::string sum_line(const std::vector<CommitReport> &commits) {
  std::vector<std::string> parts;
  std::size_t all = 0;
  for (const std::string_view state : {"not decided", "rejected", "accepted with warnings", "accepted"}) {
    const auto number = std::count_if(commits.begin(), commits.end(), [state](const CommitReport &commit) {
      return !commit.is_rollback && state_of(commit) == state;
    });
    all += static_cast<std::size_t>(number);
    if (number != 0) parts.push_back(fmt::format("{} {}", number, state));
  }
  return fmt::format("**vpnval, {}: {}**\n", count_text(all, "commit"), fmt::join(parts, ", "));
}

/// An explanation as it is printed, within an element in which nothing marks up.
std::string folded(const Finding &finding) {
  std::ostringstream explanation;
  explanation.exceptions(std::ios::badbit);  // else a text would be cut where memory runs out
  write_explanation(explanation, finding, TextStyle(false));
  std::string lines;
  std::istringstream text(explanation.str());
  std::size_t left_out = 0;
  for (std::string line; std::getline(text, line);) {
    const std::string shown = to_markup(line.substr(0, kLongestText), "&<>") + "\n";
    if (lines.size() + shown.size() > kLongestExplanation) {
      ++left_out;
    } else {
      lines += shown;
    }
  }
  if (left_out != 0) lines += fmt::format("... and {}\n", count_text(left_out, "more line"));
  return "<details><summary>details</summary>\n\n<pre>\n" + lines + "</pre>\n\n</details>\n";
}

std::string finding_markdown(const Finding &finding) {
  std::string text = finding.is_warning ? "warning" : "rejected";
  if (!finding.rule.empty()) text += " (" + to_markdown(finding.rule) + ")";
  text = fmt::format("\n**{}** {}\n", text, inline_text(finding.message));
  if (finding.suppressed) {
    return fmt::format("{}\nSuppressed by {}, because {}\n", text, inline_text(to_text(finding.suppressed->by)),
                       inline_text(finding.suppressed->reason));
  }
  return text + "\n" + folded(finding);
}

/// The findings of one kind below their heading, as many as there is room for; counts down the room.
std::string findings_markdown(const CommitReport &commit, bool from_device, std::size_t &room) {
  std::string text;
  std::size_t left_out = 0;
  for (const Finding &finding : commit.findings) {
    if (finding.from_device != from_device) continue;
    if (text.empty()) text = from_device ? "\nThe device says:\n" : "\nIt would say next:\n";
    if (room == 0) {
      ++left_out;
    } else {
      --room;
      text += finding_markdown(finding);
    }
  }
  if (left_out != 0) text += fmt::format("\n... and {} more\n", left_out);
  return text;
}

std::string commit_markdown(const CommitReport &commit) {
  std::string text = fmt::format("\n### {}: {}\n", inline_text(commit.name), state_of(commit));
  const auto add = [&text](std::string_view line) {
    if (!line.empty()) text += "\n" + inline_text(std::string(line)) + "\n";
  };
  add(commit.error);
  if (!commit.refusal.empty()) add("refused: " + commit.refusal);
  for (const MissingLimit &limit : commit.missing_limits) add(to_text(limit, commit.element));
  for (const UnreadableName &name : commit.unreadable) add(to_text(name));
  std::size_t room = kMostFindings;
  text += findings_markdown(commit, true, room);
  text += findings_markdown(commit, false, room);
  add(advice_for_all_line(commit));
  add(search_end_text(commit.search));
  return text;
}

bool is_plain(const CommitReport &commit) {
  return commit.decision == host::Decision::accepted && commit.refusal.empty() && commit.missing_limits.empty() &&
         commit.unreadable.empty();
}

}  // namespace

void write_markdown(std::ostream &out, const std::vector<CommitReport> &commits) {
  std::string text = sum_line(commits);
  std::size_t shown = 0;
  std::size_t left_out = 0;
  for (const CommitReport &commit : commits) {
    if (is_plain(commit)) continue;
    const std::string part = shown < kMostCommits ? commit_markdown(commit) : "";
    if (part.empty() || text.size() + part.size() > kLongestComment) {
      ++left_out;
    } else {
      text += part;
      ++shown;
    }
  }
  if (left_out != 0) text += fmt::format("\nLeft out: {}\n", count_text(left_out, "more commit"));
  out << text;
}

}  // namespace report
