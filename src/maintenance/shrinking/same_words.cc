#include "maintenance/shrinking/same_words.h"

#include <fmt/format.h>

namespace maintenance {

bool says_something(const Answer &answer) { return answer.end != AnswerEnd::answered || words_of(answer) != nullptr; }

bool draws_same_words(const Answer &answer, const Answer &other) {
  if (answer.end != other.end) return false;
  if (answer.end != AnswerEnd::answered) return answer.failure == other.failure;
  const host::PointVerdict *words = words_of(answer);
  const host::PointVerdict *wanted = words_of(other);
  return words != nullptr && words->point == wanted->point && words->answer == wanted->answer &&
         words->text == wanted->text;
}

std::string words_text(const Answer &answer) {
  if (answer.end != AnswerEnd::answered) return answer.failure;
  const host::PointVerdict *words = words_of(answer);
  if (words == nullptr) return "accepted";
  const char *how = words->answer == host::Answer::rejected ? "rejected" : "accepted with a warning";
  return fmt::format("{} [{}] by {}: {}", how, rule_id_of(*words), words->point, words->text);
}

}  // namespace maintenance
