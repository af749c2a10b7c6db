#ifndef AGENT_MODULE_YUMA_H
#define AGENT_MODULE_YUMA_H

// The agent's interface is C, its headers do not say so throughout.
extern "C" {
#include "agt.h"
#include "agt_cfg.h"
#include "agt_commit_complete.h"
#include "agt_commit_validate.h"
#include "agt_ncx.h"
#include "agt_not.h"
#include "agt_rpc.h"
#include "agt_util.h"
#include "agt_val.h"
#include "cfg.h"
#include "dlq.h"
#include "getcb.h"
#include "ncx.h"
#include "ncxmod.h"
#include "obj.h"
#include "rpc.h"
#include "rpc_err.h"
#include "ses.h"
#include "status.h"
#include "val.h"
#include "val_util.h"
#include "xml_wr.h"
}

#include <string>

namespace agent {

/// The agent's characters are unsigned. A null pointer is an empty text.
const xmlChar *to_xml(const char *text);
const xmlChar *to_xml(const std::string &text);
std::string from_xml(const xmlChar *text);

}  // namespace agent

#endif
