#include "tests/diagnosis/expected_findings.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "tests/diagnosis/resource.h"

namespace brute_force {
namespace {

bool is_one_finding(const MergedEntries &entries, const Conflict &one, const Conflict &other) {
  if (one.message.rule != other.message.rule) return false;
  if (one.message == other.message && one.parties == other.parties) return true;
  return (one.parties & other.parties) != 0 && share_a_resource(entries, one, other);
}

}  // namespace

std::vector<ExpectedFinding> expected_findings(const ConflictSearch &search) {
  std::vector<ExpectedFinding> findings;
  for (const Conflict &conflict : search.conflicts()) {
    ExpectedFinding joined{conflict};
    for (std::size_t i = 0; i < findings.size();) {
      const bool is_joined = std::any_of(findings[i].begin(), findings[i].end(), [&](const Conflict &other) {
        return is_one_finding(search.entries(), conflict, other);
      });
      if (!is_joined) {
        ++i;
        continue;
      }
      joined.insert(joined.end(), findings[i].begin(), findings[i].end());
      findings.erase(findings.begin() + static_cast<std::ptrdiff_t>(i));
    }
    findings.push_back(std::move(joined));
  }
  return findings;
}

std::string FindingText::text() const {
  return fmt::format("{} ({})\n    {}", rule, standing, fmt::join(lines, "\n    "));
}

std::string conflict_line(const Message &message, std::size_t enough, const std::vector<std::string> &parties,
                          const std::vector<std::string> &triggers) {
  std::string line = message.text;
  if (is_of_counting_rule(message)) line = fmt::format("{} too many", enough);
  line += fmt::format(": {}", fmt::join(parties, " "));
  if (!triggers.empty()) line += fmt::format("; looked at for {}", fmt::join(triggers, " "));
  return line;
}

FindingText finding_text(const ConflictSearch &search, const ExpectedFinding &finding) {
  FindingText text;
  text.rule = finding.front().message.rule;
  const auto in_force =
      std::count_if(finding.begin(), finding.end(), [](const Conflict &conflict) { return conflict.is_in_force; });
  text.standing = in_force == 0 ? "new" : "partly in force";
  if (in_force == static_cast<std::ptrdiff_t>(finding.size())) text.standing = "in force";
  EntrySet parties = 0;
  for (const Conflict &conflict : finding) parties |= conflict.parties;
  for (const Conflict &conflict : finding) {
    text.lines.push_back(conflict_line(conflict.message, conflict.enough, search.entries().paths(conflict.parties),
                                       search.entries().paths(conflict.triggers & ~parties)));
  }
  std::sort(text.lines.begin(), text.lines.end());
  return text;
}

std::vector<std::string> finding_texts(const ConflictSearch &search) {
  std::vector<std::string> texts;
  for (const ExpectedFinding &finding : expected_findings(search)) {
    texts.push_back(finding_text(search, finding).text());
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

}  // namespace brute_force
