#ifndef AGENT_MODULE_REPLY_ERRORS_H
#define AGENT_MODULE_REPLY_ERRORS_H

#include "agent/core/answer.h"
#include "agent/module/yuma.h"

namespace agent {

/// Adds one rpc-error to the reply: the first finding's, with all of them in its error-info; or the failure of an
/// answer that is undecided. It is a warning where the commit is accepted. `root` holds the candidate.
void add_error(xml_msg_hdr_t *header, val_value_t *root, const Answer &answer);

}  // namespace agent

#endif
