#ifndef AGENT_CORE_EVENT_LINES_H
#define AGENT_CORE_EVENT_LINES_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "agent/core/answer.h"

namespace agent {

/// An operation of a session, about which the library was asked.
struct Operation {
  std::string name;
  unsigned session = 0;  ///< 0: none
  std::string user;
};

/// What an operation led to, as a line of JSON without its end. The module in the agent writes it, vpnval serve reads
/// it.
std::string answer_line(const Operation &operation, const Answer &answer);

/// Such a line for people; nothing where it is none.
std::optional<std::string> answer_text(const std::string &line);

/// Such a line with the time of day; nothing where it is none.
std::optional<std::string> timed_answer_line(const std::string &line, const std::string &time);

/// Any other event as a line of JSON: texts by name, and at most one number.
std::string event_line(const std::vector<std::pair<std::string, std::string>> &texts,
                       const std::optional<std::pair<std::string, std::size_t>> &number = std::nullopt);

}  // namespace agent

#endif
