#ifndef MAINTENANCE_TRANSCRIPT_ANONYMISE_H
#define MAINTENANCE_TRANSCRIPT_ANONYMISE_H

#include "element/schema/schema.h"
#include "maintenance/recording/recording.h"

namespace transcript {

/// Puts other names in the place of those that the operator gave groups and VPNs, the same for the same wherever it
/// stands, so that a replay draws the same verdict up to names. What is kept of them is their order, their length, what
/// they begin with in common, and which characters are capitals, small letters, digits or others. Names of interfaces,
/// numbers and addresses stay, and so do names that are a number, that are a word of the library's texts, or that hold
/// a word that the rules look for.
void anonymise(recording::Recording &recording, const element::Schema &schema);

}  // namespace transcript

#endif
