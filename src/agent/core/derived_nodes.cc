#include "agent/core/derived_nodes.h"

#include <nlohmann/json.hpp>
#include <system_error>

#include "agent/core/finding_data.h"
#include "agent/core/limited_child.h"

namespace agent {
namespace {

/// An enumeration is shown as "name (number)".
std::string without_number(std::string value) {
  if (value.ends_with(')')) value.resize(std::min(value.size(), value.rfind(" (")));
  return value;
}

}  // namespace

std::optional<std::vector<DerivedNode>> read_derived(const process::Result &result) {
  const nlohmann::json document = nlohmann::json::parse(result.out, nullptr, false);
  if (!document.is_object()) return std::nullopt;
  std::vector<DerivedNode> nodes;
  for (const nlohmann::json &node : list_of(document, "nodes")) {
    nodes.push_back({path_steps(text_of(node, "path")), without_number(text_of(node, "value"))});
  }
  return nodes;
}

std::optional<std::vector<DerivedNode>> derive(const Settings &settings, const std::filesystem::path &running) {
  const std::vector<std::string> arguments{
      "show",
      settings.work.string(),
      "--format=json",
      "--running-config",
      "--element=" + settings.profile.string(),
      "--running=" + running.string(),
      "--candidate=" + running.string(),
  };
  try {
    const std::optional<process::Result> result = run_within(settings.limit, settings.program, arguments);
    return result ? read_derived(*result) : std::nullopt;
  } catch (const std::system_error &) {
    return std::nullopt;
  }
}

}  // namespace agent
