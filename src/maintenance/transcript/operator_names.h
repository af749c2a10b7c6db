#ifndef MAINTENANCE_TRANSCRIPT_OPERATOR_NAMES_H
#define MAINTENANCE_TRANSCRIPT_OPERATOR_NAMES_H

#include <set>
#include <string>

#include "element/schema/schema.h"
#include "maintenance/recording/recording.h"

namespace transcript {

/// The texts of a recording that are names.
struct FoundNames {
  std::set<std::string> of_operator;    ///< of groups and VPNs
  std::set<std::string> of_interfaces;  ///< and other texts that are keys or values
};

/// Finds names by the place of the data model that the library read them from.
FoundNames find_names(const recording::Recording &recording, const element::Schema &schema);

}  // namespace transcript

#endif
