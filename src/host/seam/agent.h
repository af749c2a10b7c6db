#ifndef HOST_SEAM_AGENT_H
#define HOST_SEAM_AGENT_H

#include <cstdarg>

#include "confd_lib.h"
#include "host/seam/host_session.h"
#include "host/seam/resolve.h"

namespace host {

/// Sets confd_errno; answers CONFD_ERR.
int fail(int reason);

/// Counts a call of the agent. The element that answers it, or null, with confd_errno set, where there is none or the
/// call is the one that must fail.
HostSession *enter_agent(SeamFunction function);

/// As enter_agent for a read of a transaction, which must be the one that the element serves.
HostSession *enter_transaction(SeamFunction function, int sock, int thandle);

/// Resolves the path of a call of `function`. 0, or the error code that the call must fail with; the session's
/// statistics then list the path, as they do one with quotes.
[[gnu::format(printf, 4, 0)]] int resolve_path(HostSession &session, SeamFunction function, ResolvedPath &path,
                                               const char *format, std::va_list arguments);

}  // namespace host

#endif
