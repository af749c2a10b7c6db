#ifndef REPORT_SHOWN_NODES_H
#define REPORT_SHOWN_NODES_H

#include <string>
#include <vector>

namespace report {

/// What `show` prints of a configuration: a leaf with its value, or an entry that holds no leaf.
struct ShownNode {
  std::string path;
  std::string value;  ///< empty where there is none
};

using ShownNodes = std::vector<ShownNode>;

}  // namespace report

#endif
