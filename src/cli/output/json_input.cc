#include "cli/output/json_input.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "cli/findings/finding_json.h"
#include "cli/output/decision_text.h"
#include "cli/output/json_output.h"

namespace cli {
namespace {

using nlohmann::ordered_json;

host::Decision read_decision(const std::string &text) {
  for (const host::Decision decision :
       {host::Decision::accepted, host::Decision::accepted_with_warnings, host::Decision::rejected}) {
    if (decision_name(decision) == text) return decision;
  }
  throw DocumentError(fmt::format("decision \"{}\" is none that is known", text));
}

DecidedCommit read(const ordered_json &json, const std::string &name) {
  const int version = json.at("schema-version").get<int>();
  if (version != json_schema_version) {
    throw DocumentError(fmt::format("schema-version {}; expected {}", version, json_schema_version));
  }
  DecidedCommit commit;
  commit.name = name;
  commit.decision = read_decision(json.at("decision").get<std::string>());
  commit.findings = read_findings(json.at("findings"));
  commit.search = read_search(json.at("search"));
  commit.unused_suppressions = json.at("unused-suppressions").get<std::vector<std::string>>();
  return commit;
}

}  // namespace

DecidedCommit read_json_report(std::string_view document, const std::string &name) {
  try {
    return read(ordered_json::parse(document), name);
  } catch (const ordered_json::exception &error) {
    throw DocumentError(fmt::format("no verdict of schema version {}: {}", json_schema_version, error.what()));
  }
}

}  // namespace cli
