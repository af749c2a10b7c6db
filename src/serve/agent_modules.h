#ifndef SERVE_AGENT_MODULES_H
#define SERVE_AGENT_MODULES_H

#include <string_view>
#include <vector>

namespace serve {

/// A YANG module of the agent's own that is embedded in the program.
struct AgentModule {
  std::string_view name;
  std::string_view text;
};

const std::vector<AgentModule> &agent_modules();

}  // namespace serve

#endif
