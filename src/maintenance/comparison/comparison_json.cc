#include <nlohmann/json.hpp>

#include "maintenance/commits/commit_lines.h"
#include "maintenance/comparison/comparison.h"
#include "report/json/json_text.h"

namespace maintenance {
namespace {

using Json = nlohmann::ordered_json;

Json to_json(const ComparedLibrary &library) { return {{"file", library.file}, {"build-id", library.build_id}}; }

Json to_json(const ShownChange &shown) {
  Json json{{"origin", shown.origin}};
  if (shown.commit) {
    json["nodes-before"] = shown.nodes_before;
    json["nodes"] = shown.nodes_after;
    json["commit"] = commit_lines(*shown.commit);
  }
  json["old"] = shown.old_lines;
  json["new"] = shown.new_lines;
  return json;
}

Json to_json(const ChangeGroup &group) {
  Json json{{"rule", group.change.rule}, {"direction", group.change.direction}, {"commits", group.commits}};
  if (!group.reason.empty()) json["accepted"] = group.reason;
  if (group.shown) json["example"] = to_json(*group.shown);
  return json;
}

Json to_json(const CorpusStatistics &corpus) {
  Json rules = Json::object();
  for (const auto &[id, reach] : corpus.rules) {
    rules[id] = {{"rejected", reach.rejected}, {"warned", reach.warned}, {"told", reach.told}};
  }
  Json json{{"commits", corpus.commits},
            {"accepted", corpus.accepted},
            {"accepted-with-warnings", corpus.accepted_with_warnings},
            {"rejected", corpus.rejected},
            {"failed", corpus.failed},
            {"not-decided", corpus.not_decided},
            {"rules", std::move(rules)},
            {"not-reached", corpus.not_reached()}};
  return json;
}

}  // namespace

void write_json(std::ostream &out, const Comparison &comparison) {
  Json groups = Json::array();
  for (const ChangeGroup &group : comparison.groups) groups.push_back(to_json(group));
  const Json json{{"schema-version", 1},
                  {"program", {{"name", "vpnval"}, {"version", VPNVAL_VERSION}}},
                  {"old", to_json(comparison.old_library)},
                  {"new", to_json(comparison.new_library)},
                  {"changed", comparison.changed},
                  {"directions", comparison.directions},
                  {"old-against-old", comparison.unsteady},
                  {"groups", std::move(groups)},
                  {"corpus", to_json(comparison.corpus)},
                  {"unused-accepted", comparison.unused_lines}};
  out << report::json_text(json, 2) << '\n';
}

}  // namespace maintenance
