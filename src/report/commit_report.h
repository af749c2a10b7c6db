#ifndef REPORT_COMMIT_REPORT_H
#define REPORT_COMMIT_REPORT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/run/commit.h"
#include "report/finding.h"
#include "report/passed_over.h"
#include "report/unreadable_names.h"

namespace report {

/// Why a search for the parties of the messages ended.
enum class SearchEnd {
  complete,           ///< everything was looked at
  call_budget,        ///< all calls of the library that the budget allows were made
  time_budget,        ///< the time that the budget allows was over
  interrupted,        ///< a signal asked for the end
  contract_violation  ///< the library broke its contract when it was asked about a smaller commit
};

/// What a search did and how it ended.
struct SearchReport {
  bool all_faults = false;  ///< it went on behind what the device says
  std::uint64_t calls = 0;  ///< how often the library was asked about a reduced commit
  std::uint64_t budget_calls = 0;
  double budget_seconds = 0;
  SearchEnd end = SearchEnd::complete;
  bool has_all_repairs = true;              ///< false: the search for repairs, which comes last, was ended
  std::vector<std::string> unproven_rules;  ///< ids of rules of which there may be further findings
  std::string contract_violation;           ///< what the library did against its contract; empty for the other ends
};

/// A limit that the element's profile lacks.
struct MissingLimit {
  std::string field;  ///< of the profile's card
  std::string rule;   ///< id of the rule about the limit
  int allowed = 0;    ///< what the library takes the limit for
};

/// A commit that was decided, or could not be, as the formats for many commits show it.
struct CommitReport {
  std::string name;             ///< as its user named it: its folder, or the candidate's file
  std::string input_arguments;  ///< what names it on a command line, quoted for a shell; empty for one of many
  std::optional<host::Decision> decision;  ///< nothing: there is an error instead
  std::string error;                       ///< why it could not be decided, one line
  bool is_audit = false;                   ///< of what is in force, not of a change
  std::string refusal;                     ///< why it is not to be committed whatever the library says; empty: none
  FilePlace error_place;                   ///< where that stands; without a file where it is not known
  double seconds = 0;                      ///< how long it took; not known of a rollback by itself
  PassedOver passed_over;                  ///< of the files; nothing for a rollback
  std::string element;                     ///< the profile's file
  std::vector<MissingLimit> missing_limits;
  std::vector<UnreadableName> unreadable;  ///< beside the verdict, whatever it is
  std::vector<Finding> findings;
  AdviceReport advice;  ///< for all findings together
  SearchReport search;
  std::vector<std::string> unused_suppressions;   ///< "FILE:LINE: RULE PATH" of those that fit no finding
  std::vector<std::string> expired_suppressions;  ///< of those that hold no more, with their date
  bool is_rollback = false;                       ///< it leads from another commit's candidate back
  std::vector<CommitReport> rollback;             ///< the way back where it was decided: one, else none
};

/// Whether it is proven that there are no findings but those that are told.
bool is_proven_complete(const SearchReport &search);

/// How many rejections, or warnings, are not suppressed.
std::size_t count_open(const std::vector<Finding> &findings, bool warnings);

/// Whether a commit that is accepted with warnings has one that is not suppressed, or may have one behind those that a
/// search left unseen.
bool has_open_warning(const CommitReport &commit);

}  // namespace report

#endif
