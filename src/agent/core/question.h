#ifndef AGENT_CORE_QUESTION_H
#define AGENT_CORE_QUESTION_H

#include <filesystem>

#include "agent/core/answer.h"
#include "agent/core/settings.h"

namespace agent {

/// Has a process of its own ask the library about the commit of these two files: whatever becomes of it, this process
/// goes on. One that takes longer than the limit is ended, and the answer says so.
Answer ask(const Settings &settings, const std::filesystem::path &running, const std::filesystem::path &candidate);

}  // namespace agent

#endif
