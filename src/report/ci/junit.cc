#include "report/ci/junit.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
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

Outcome outcome_of(const CommitReport &commit, bool fail_on_warn) {
  if (!commit.decision) return Outcome::error;
  if (!commit.refusal.empty()) return Outcome::failed;
  if (*commit.decision != host::Decision::rejected) {
    return fail_on_warn && has_open_warning(commit) ? Outcome::failed : Outcome::passed;
  }
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

/// Which findings make a case fail.
struct Fails {
  bool on_warning;
  bool operator()(const Finding &finding) const { return !finding.suppressed && (on_warning || !finding.is_warning); }
};

/// Rejections stand before warnings, so that the first one names the failure. There is none where a search has left
/// warnings unseen that may not be suppressed.
void write_failure(std::ostream &out, const CommitReport &commit, Fails fails) {
  const auto first = std::find_if(commit.findings.begin(), commit.findings.end(), fails);
  std::string message = commit.refusal.empty() ? search_end_text(commit.search) : commit.refusal;
  std::string type = commit.refusal.empty() ? "search-stopped" : "refused";
  if (commit.refusal.empty() && first != commit.findings.end()) {
    message = first->message;
    type = first->rule.empty() ? first->point : first->rule;
  }
  out << fmt::format("      <failure message=\"{}\" type=\"{}\">{}</failure>\n", attribute(message), attribute(type),
                     findings_content(commit.findings, fails));
}

void write_outcome(std::ostream &out, const CommitReport &commit, Fails fails) {
  switch (outcome_of(commit, fails.on_warning)) {
    case Outcome::passed:
      return;
    case Outcome::failed:
      return write_failure(out, commit, fails);
    case Outcome::skipped:
      out << "      <skipped message=\"rejected, but every rejection found is suppressed\"/>\n";
      return;
    case Outcome::error:
      out << fmt::format("      <error message=\"{0}\" type=\"error\">{0}</error>\n", attribute(commit.error));
  }
}

/// What does not fail the case stands in its output.
void write_case(std::ostream &out, const CommitReport &commit, bool fail_on_warn) {
  const Fails fails{fail_on_warn};
  out << fmt::format("    <testcase classname=\"vpnval.check\" name=\"{}\" time=\"{:.3f}\">\n", attribute(commit.name),
                     commit.seconds);
  write_outcome(out, commit, fails);
  std::string output;
  for (const UnreadableName &name : commit.unreadable) output += content(to_text(name)) + "\n";
  output += findings_content(commit.findings, [&](const Finding &finding) { return !fails(finding); });
  for (const std::string &line : {advice_for_all_line(commit), search_end_text(commit.search)}) {
    if (!line.empty()) output += content(line) + '\n';
  }
  if (!output.empty()) out << "      <system-out>" << output << "</system-out>\n";
  out << "    </testcase>\n";
}

}  // namespace

void write_junit(std::ostream &out, const std::vector<CommitReport> &commits, bool fail_on_warn) {
  const auto count = [&](Outcome outcome) {
    return std::count_if(commits.begin(), commits.end(),
                         [=](const CommitReport &commit) { return outcome_of(commit, fail_on_warn) == outcome; });
  };
  const double seconds = std::accumulate(commits.begin(), commits.end(), 0.0,
                                         [](double sum, const CommitReport &commit) { return sum + commit.seconds; });
  const std::string counts =
      fmt::format("name=\"vpnval\" tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\"", commits.size(),
                  count(Outcome::failed), count(Outcome::error), count(Outcome::skipped));
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out << fmt::format("<testsuites name=\"vpnval\">\n  <testsuite {} time=\"{:.3f}\">\n", counts, seconds);
  for (const CommitReport &commit : commits) write_case(out, commit, fail_on_warn);
  out << "  </testsuite>\n</testsuites>\n";
}

}  // namespace report
