#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "element/profile/made_profile.h"

namespace element {
namespace {

std::string interface_line(const Interface &interface) {
  return fmt::format("    {{\"name\": {}, \"logical-id\": {}, \"ifindex\": {}}}", nlohmann::json(interface.name).dump(),
                     interface.logical_id, interface.ifindex);
}

}  // namespace

std::string write_profile(const Profile &profile) {
  std::vector<std::string> limits;
  for (const LimitField &field : kLimitFields) {
    const std::optional<std::uint32_t> &limit = profile.card.*field.value;
    if (limit) limits.push_back(fmt::format("    \"{}\": {}", field.name, *limit));
  }
  std::vector<std::string> interfaces;
  for (const Interface &interface : profile.interfaces()) interfaces.push_back(interface_line(interface));
  const auto lines = [](const std::vector<std::string> &all) {
    return all.empty() ? "" : fmt::format("\n{}\n  ", fmt::join(all, ",\n"));
  };
  return fmt::format("{{\n  \"card\": {{{}}},\n  \"interfaces\": [{}]\n}}\n", lines(limits), lines(interfaces));
}

}  // namespace element
