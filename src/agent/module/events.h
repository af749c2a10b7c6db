#ifndef AGENT_MODULE_EVENTS_H
#define AGENT_MODULE_EVENTS_H

#include <string_view>

#include "agent/core/answer.h"
#include "agent/module/yuma.h"

namespace agent {

/// Tells vpnval serve, in a line on standard error, what an operation of a session led to.
void log_answer(const ses_cb_t *session, std::string_view operation, const Answer &answer);

/// Sends subscribers of notifications the warnings of a commit.
void notify_warnings(const ses_cb_t *session, const Answer &answer);

}  // namespace agent

#endif
