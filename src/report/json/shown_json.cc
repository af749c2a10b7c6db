#include "report/json/shown_json.h"

#include <nlohmann/json.hpp>

#include "report/json/array.h"
#include "report/json/json_text.h"

namespace report {
namespace {

using nlohmann::ordered_json;

constexpr int kShownSchemaVersion = 1;

ordered_json shown_json(const ShownNode &node) {
  ordered_json json{{"path", node.path}};
  if (!node.value.empty()) json["value"] = node.value;
  return json;
}

}  // namespace

void write_shown_json(std::ostream &out, const ShownNodes &nodes) {
  const ordered_json json{{"schema-version", kShownSchemaVersion},
                          {"program", {{"name", "vpnval"}, {"version", VPNVAL_VERSION}}},
                          {"nodes", array(nodes, shown_json)}};
  out << json_text(json, 2) << '\n';
}

}  // namespace report
