#include "report/ci/github.h"

#include <fmt/format.h>

#include <sstream>
#include <string>
#include <string_view>

#include "element/input/utf8.h"
#include "report/escape/printable.h"
#include "report/profile_faults.h"
#include "report/text/explanation_text.h"
#include "report/text/findings_text.h"

namespace report {
namespace {

/// A command is one line: its message ends where the line does, its properties also at a comma or colon.
std::string escaped(std::string_view text, std::string_view with_meaning) {
  std::string result;
  for (const char c : element::replace_invalid_utf8(text)) {
    if (with_meaning.find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return result;
}

std::string message_data(std::string_view text) { return escaped(text, "%\r\n"); }
std::string property(std::string_view text) { return escaped(text, "%\r\n:,"); }

void write_command(std::ostream &out, std::string_view command, const FilePlace &place, std::string_view title,
                   std::string_view message) {
  out << "::" << command << ' ';
  if (!place.file.empty()) out << "file=" << property(place.file) << ',';
  if (place.line != 0) out << "line=" << place.line << ',';
  out << "title=" << property(printable(title)) << "::" << message_data(message) << '\n';
}

/// "access-same-dot1q (the device says)": the runner shows titles in the order of the files, not of the findings.
std::string title_of(const Finding &finding, bool is_rollback) {
  return fmt::format("{} ({}{})", finding.rule.empty() ? finding.point : finding.rule,
                     finding.from_device ? "the device says" : "it would say next",
                     is_rollback ? "; the way back" : "");
}

void write_finding(std::ostream &out, const Finding &finding, bool is_rollback) {
  std::ostringstream message;
  message.exceptions(std::ios::badbit);  // else a text would be cut where memory runs out
  message << printable(finding.message) << '\n';
  write_explanation(message, finding, TextStyle(false));
  std::string text = message.str();
  text.pop_back();
  write_command(out, finding.is_warning ? "warning" : "error", finding.place, title_of(finding, is_rollback), text);
}

}  // namespace

void write_github(std::ostream &out, const std::vector<CommitReport> &commits) {
  for (const CommitReport &commit : commits) {
    if (!commit.decision) write_command(out, "error", commit.error_place, commit.name, printable(commit.error));
    if (!commit.refusal.empty()) write_command(out, "error", {}, commit.name, "refused: " + commit.refusal);
    for (const MissingLimit &limit : commit.missing_limits) {
      write_command(out, "warning", {commit.element, 0}, commit.name, to_text(limit, commit.element));
    }
    for (const UnreadableName &name : commit.unreadable) write_command(out, "warning", {}, commit.name, to_text(name));
    for (const Finding &finding : commit.findings) {
      if (!finding.suppressed) write_finding(out, finding, commit.is_rollback);
    }
    for (const std::string &notice : {advice_for_all_line(commit), search_end_text(commit.search)}) {
      if (!notice.empty()) write_command(out, "notice", {}, commit.name, notice);
    }
  }
}

}  // namespace report
