#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_BACKGROUND_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_BACKGROUND_H

#include "tests/diagnosis/seeded_faults/network.h"

namespace seeded {

/// Writes a commit that the library accepts without a warning: some VPNs stand, others come, go or change, and so do
/// things beside them. Some of its changes are fine only because of other changes of it.
void put_background(Draft &draft, NamePool &names);

/// VPNs with a VLAN and a pseudowire each, half of them new.
void put_clean_vpns(Draft &draft, NamePool &names, std::size_t number);

}  // namespace seeded

#endif
