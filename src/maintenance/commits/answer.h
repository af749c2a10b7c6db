#ifndef MAINTENANCE_COMMITS_ANSWER_H
#define MAINTENANCE_COMMITS_ANSWER_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/run/commit.h"

namespace maintenance {

/// How asking a library about a commit ended.
enum class AnswerEnd {
  answered,        ///< every point has its verdict
  died,            ///< the process ended in the middle; `failure` says how
  broke_contract,  ///< host::ContractError
  not_decided,     ///< the library was not asked: the configurations do not fit the element
  not_loaded,      ///< host::LoadError
  diverged         ///< of a recording: it asked for what was not recorded; `failure` says what
};

/// What a library answers to a commit: at all validation points that the commit triggers, also behind a rejection.
struct Answer {
  AnswerEnd end = AnswerEnd::answered;
  std::string failure;  ///< empty where it answered
  host::Decision decision = host::Decision::accepted;
  std::vector<host::PointVerdict> points;
  std::vector<std::string> trace;
  std::array<std::uint64_t, host::seam_function_count> calls{};
};

/// The answer as bytes, for another process of the same build.
std::string to_bytes(const Answer &answer);
Answer answer_from(std::string_view bytes);

/// What the element tells the operator: the first rejection, else the first warning; null where it says nothing.
const host::PointVerdict *words_of(const Answer &answer);

/// The id of the rule that a point's words are of; "unknown" for words that no rule has, empty where it accepted.
std::string rule_id_of(const host::PointVerdict &point);

}  // namespace maintenance

#endif
