#ifndef REPORT_PASSED_OVER_H
#define REPORT_PASSED_OVER_H

#include <cstddef>
#include <string>
#include <string_view>

#include "report/input_files.h"

namespace report {

/// How much of a configuration file is of modules that are not the element's, and was not read.
struct PassedOverCount {
  std::size_t nodes = 0;
  std::size_t modules = 0;
};

/// Of a commit's two configurations.
struct PassedOver {
  PassedOverCount running;
  PassedOverCount candidate;

  bool is_nothing() const { return running.nodes == 0 && candidate.nodes == 0; }
};

PassedOver count_passed_over(const InputSources &sources);

/// "passed over: 212 nodes of 87 modules in running, 1 node of 1 module in candidate"; empty where nothing was.
std::string passed_over_text(const PassedOver &passed_over);

/// "1 node", "2 nodes".
std::string count_text(std::size_t count, std::string_view name);

}  // namespace report

#endif
