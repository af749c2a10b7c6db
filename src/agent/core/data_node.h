#ifndef AGENT_CORE_DATA_NODE_H
#define AGENT_CORE_DATA_NODE_H

#include <string>
#include <vector>

namespace agent {

/// A node of our YANG module: a leaf with its text, or a container or list entry with what it holds.
struct DataNode {
  std::string name;
  std::string text;
  std::vector<DataNode> children;
};

}  // namespace agent

#endif
