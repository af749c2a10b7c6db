#ifndef CONFIG_VALIDATE_VPN_ENTRY_POINTS_H
#define CONFIG_VALIDATE_VPN_ENTRY_POINTS_H

#include <cstdint>

#include "confd_dp.h"

extern "C" {

/// Called once after loading, with the address of the word that the host keeps for the plug-in. Zeroes the word, reads
/// the card's limits, answers 0.
std::int32_t lib_init(void **state);

/// Writes the name under which the host registers the plug-in, cut to `length` characters with the terminating zero.
/// Answers 0.
std::int32_t get_validation_point(char *name, std::int32_t length);

/// Validates one node for the validation point that the context names. Answers 0 (accept; also for a point that the
/// plug-in does not know), -1 (reject) or -3 (accept with a warning); for the last two the text is on the transaction.
std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);

/// Called before unloading. Answers -1 when the host's word is no longer zero, else 0.
std::int32_t lib_finish(void **state);
}

#endif
