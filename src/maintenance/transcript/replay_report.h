#ifndef MAINTENANCE_TRANSCRIPT_REPLAY_REPORT_H
#define MAINTENANCE_TRANSCRIPT_REPLAY_REPORT_H

#include <string>

#include "host/run/commit.h"
#include "maintenance/replay/replay.h"

namespace transcript {

/// What came of a replay, for a reader: the same verdict or not; where the library asked for what was not recorded,
/// that call with the five before it; and the answers that it did not ask for, the first twenty of them.
std::string replay_text(const recording::Recording &recording, const replay::Outcome &outcome);

/// The same as a JSON document with a line end, whole.
std::string replay_json(const recording::Recording &recording, const replay::Outcome &outcome);

/// What the library said to a commit that was made of a recording.
struct CommitAnswer {
  std::optional<std::int64_t> verdict;  ///< none where the recorded point did not fire
  std::optional<std::string> message;
  bool is_same = false;
};

CommitAnswer commit_answer(const recording::Recording &recording, const std::optional<host::PointVerdict> &verdict);

/// The folder of such a commit, what in it was made up, and whether the library draws the same verdict.
std::string commit_text(const recording::Recording &recording, const std::string &folder,
                        const std::vector<std::string> &made_up, const CommitAnswer &answer);
std::string commit_json(const recording::Recording &recording, const std::string &folder,
                        const std::vector<std::string> &made_up, const CommitAnswer &answer);

}  // namespace transcript

#endif
