#ifndef MAINTENANCE_COMPARISON_COMPARISON_H
#define MAINTENANCE_COMPARISON_COMPARISON_H

#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "maintenance/commits/commit.h"
#include "maintenance/comparison/answer_change.h"
#include "maintenance/comparison/corpus_statistics.h"

namespace maintenance {

struct ComparedLibrary {
  std::string file;
  std::string build_id;
};

/// The example of a change: a shrunk commit, or a recorded question.
struct ShownChange {
  std::string origin;  ///< name, in the corpus, of the commit that was shrunk
  std::optional<Commit> commit;
  std::size_t nodes_before = 0;  ///< 0 without a commit
  std::size_t nodes_after = 0;
  std::vector<std::string> old_lines{};  ///< where the answers differ, as differing_lines() has them
  std::vector<std::string> new_lines{};
};

/// All commits of the corpus with the same change.
struct ChangeGroup {
  AnswerChange change;
  std::size_t commits = 0;
  std::string reason;  ///< why it is accepted; empty: it is not
  std::optional<ShownChange> shown;
};

/// How the answers of two builds to a corpus differ.
struct Comparison {
  ComparedLibrary old_library;
  ComparedLibrary new_library;
  std::size_t changed = 0;                        ///< commits with a change
  std::map<std::string, std::size_t> directions;  ///< of the verdicts, see verdict_direction()
  std::size_t unsteady = 0;                       ///< commits to which OLD gives two answers; not 0: all else is void
  std::string first_unsteady;                     ///< the name of the first of them
  std::vector<ChangeGroup> groups;                ///< in the order of the rules, then by direction
  CorpusStatistics corpus;                        ///< with OLD
  std::vector<std::string> unused_lines;          ///< of accepted changes that did not show

  bool is_void() const { return unsteady != 0; }
  bool is_all_accepted() const;
};

/// "12 of 10,000 verdicts changed: 7 accepted -> rejected, ...; rules: pw-id-twice; OLD against OLD: 0".
std::string sum_line(const Comparison &comparison);

/// "10,000".
std::string counted(std::size_t number);
/// "10,000 commits", "1 commit".
std::string commits_text(std::size_t number);

void write_text(std::ostream &out, const Comparison &comparison);
void write_markdown(std::ostream &out, const Comparison &comparison);
void write_junit(std::ostream &out, const Comparison &comparison);
/// One JSON document; docs/diff.schema.json describes it.
void write_json(std::ostream &out, const Comparison &comparison);

}  // namespace maintenance

#endif
