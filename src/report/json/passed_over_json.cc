#include "report/json/passed_over_json.h"

#include <nlohmann/json.hpp>

#include "report/json/array.h"

namespace report {
namespace {

using nlohmann::ordered_json;

ordered_json module_json(const element::ForeignModule &module) {
  return {{"module", module.name}, {"nodes", module.nodes}, {"file", module.file}, {"line", module.line}};
}

ordered_json count_json(const PassedOverCount &count, const element::PassedOver *listed) {
  ordered_json json{{"nodes", count.nodes}, {"modules", count.modules}};
  if (listed != nullptr) json["list"] = array(listed->modules, module_json);
  return json;
}

PassedOverCount read_count(const ordered_json &json) {
  return {json.at("nodes").get<std::size_t>(), json.at("modules").get<std::size_t>()};
}

}  // namespace

ordered_json passed_over_json(const PassedOver &passed_over, const InputSources *listed) {
  return {
      {"running", count_json(passed_over.running, listed == nullptr ? nullptr : &listed->running.passed_over)},
      {"candidate", count_json(passed_over.candidate, listed == nullptr ? nullptr : &listed->candidate.passed_over)}};
}

PassedOver read_passed_over(const ordered_json &json) {
  return {read_count(json.at("running")), read_count(json.at("candidate"))};
}

}  // namespace report
