#ifndef CONFIG_VALIDATE_VPN_SHARED_VALIDATION_KEEPALIVE_H
#define CONFIG_VALIDATE_VPN_SHARED_VALIDATION_KEEPALIVE_H

#include <cstdint>

#include "confd_dp.h"

/// Extends the transaction's time-out to 120 s when more than 36 s of wall-clock time have passed since the last
/// extension of the process, whichever transaction asked for it; the process's first call only starts that interval.
/// Returns 0 when nothing was done, else the result of the extension.
std::int32_t validation_keepalive(confd_trans_ctx *tctx);

#endif
