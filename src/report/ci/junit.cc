#include "report/ci/junit.h"

#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>

#include "report/escape/markup.h"
#include "report/escape/printable.h"
#include "report/text/explanation_text.h"
#include "report/text/findings_text.h"

namespace report {
namespace {

enum class Outcome { passed, failed, skipped, error };

bool is_open_rejection(const Finding &finding) { return !finding.is_warning && !finding.suppressed; }

Outcome outcome_of(const CommitReport &commit) {
  if (!commit.decision) return Outcome::error;
  if (*commit.decision != host::Decision::rejected) return Outcome::passed;
  return count_open(commit.findings, false) != 0 ? Outcome::failed : Outcome::skipped;
}

/// A value for an attribute, which stands in double quotes: an apostrophe needs no reference. Line breaks, which would
/// be lost, and control characters, which XML cannot hold, are escapes.
std::string attribute(std::string_view text) { return to_markup(text, "&<>\""); }

/// An element's content: the same, but lines stay lines.
std::string content(const std::string &text) {
  std::string result;
  std::istringstream lines(text);
  lines.exceptions(std::ios::badbit);  // else it would be cut where memory runs out
  for (std::string line; std::getline(lines, line);) {
    if (!result.empty()) result += '\n';
    result += attribute(line);
  }
  return result;
}

std::string finding_text(const Finding &finding) {
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // else a text would be cut where memory runs out
  write_headline(text, finding, TextStyle(false));
  if (!finding.suppressed) write_explanation(text, finding, TextStyle(false));
  return text.str();
}

/// The findings that are wanted, what the device says told apart from what it would say next.
template <typename IsWanted>
std::string findings_content(const std::vector<Finding> &findings, IsWanted is_wanted) {
  std::string text;
  for (const bool from_device : {true, false}) {
    bool is_first = true;
    for (const Finding &finding : findings) {
      if (finding.from_device != from_device || !is_wanted(finding)) continue;
      if (is_first) text += from_device ? "what the device says:\n" : "what it would say next:\n";
      is_first = false;
      text += content(finding_text(finding)) + '\n';
    }
  }
  return text;
}

void write_failure(std::ostream &out, const std::vector<Finding> &findings) {
  const auto first = std::find_if(findings.begin(), findings.end(), is_open_rejection);
  out << fmt::format("      <failure message=\"{}\" type=\"{}\">{}</failure>\n", attribute(first->message),
                     attribute(first->rule.empty() ? first->point : first->rule),
                     findings_content(findings, is_open_rejection));
}

void write_outcome(std::ostream &out, const CommitReport &commit) {
  switch (outcome_of(commit)) {
    case Outcome::passed:
      return;
    case Outcome::failed:
      return write_failure(out, commit.findings);
    case Outcome::skipped:
      out << "      <skipped message=\"rejected, but every rejection found is suppressed\"/>\n";
      return;
    case Outcome::error:
      out << fmt::format("      <error message=\"{0}\" type=\"error\">{0}</error>\n", attribute(commit.error));
  }
}

void write_case(std::ostream &out, const CommitReport &commit) {
  out << fmt::format("    <testcase classname=\"vpnval.check\" name=\"{}\" time=\"0\">\n", attribute(commit.name));
  write_outcome(out, commit);
  std::string output;
  for (const UnreadableName &name : commit.unreadable) output += content(to_text(name)) + "\n";
  output += findings_content(commit.findings, [](const Finding &finding) { return !is_open_rejection(finding); });
  for (const std::string &line : {advice_for_all_line(commit), search_end_text(commit.search)}) {
    if (!line.empty()) output += content(line) + '\n';
  }
  if (!output.empty()) out << "      <system-out>" << output << "</system-out>\n";
  out << "    </testcase>\n";
}

}  // namespace

void write_junit(std::ostream &out, const std::vector<CommitReport> &commits) {
  const auto count = [&commits](Outcome outcome) {
    return std::count_if(commits.begin(), commits.end(),
                         [outcome](const CommitReport &commit) { return outcome_of(commit) == outcome; });
  };
  const std::string counts =
      fmt::format("name=\"vpnval\" tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\"", commits.size(),
                  count(Outcome::failed), count(Outcome::error), count(Outcome::skipped));
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out << "<testsuites name=\"vpnval\">\n  <testsuite " << counts << " time=\"0\">\n";
  for (const CommitReport &commit : commits) write_case(out, commit);
  out << "  </testsuite>\n</testsuites>\n";
}

}  // namespace report
