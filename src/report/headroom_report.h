#ifndef REPORT_HEADROOM_REPORT_H
#define REPORT_HEADROOM_REPORT_H

#include <string>
#include <string_view>
#include <vector>

#include "headroom/report.h"
#include "report/unreadable_names.h"

namespace report {

/// What one element makes of the commit.
struct ElementHeadroom {
  std::string file;  ///< its profile
  headroom::Measurement measurement;
  std::vector<UnreadableName> unreadable;  ///< of the measurement's questions
};

/// What `headroom` found out, for every output format. The elements have the same limits in the same order.
struct HeadroomReport {
  std::string running;
  std::string candidate;
  std::string plugin_file;  ///< the file that decided
  std::string build_id;
  std::vector<ElementHeadroom> elements;
};

}  // namespace report

#endif
