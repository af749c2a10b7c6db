#ifndef TESTS_PLANTED_BACKGROUND_H
#define TESTS_PLANTED_BACKGROUND_H

#include "tests/planted/network.h"

namespace planted {

/// Writes a commit that the library accepts without a warning: some VPNs stand, others come, go or change, and so do
/// things beside them. Some of its changes are fine only because of other changes of it.
void put_background(Draft &draft, Supply &supply);

}  // namespace planted

#endif
