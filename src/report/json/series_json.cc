#include "report/json/series_json.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "report/json/json_text.h"
#include "report/json/node_json.h"
#include "report/json/verdict_json.h"

namespace report {
namespace {

using nlohmann::ordered_json;

/// The verdict is put in as it is: parsing a large one only to print it again would take long.
std::string commit_text(const CommitResult &result) {
  ordered_json json{{"name", result.commit.name}, {"status", result.exit_status}};
  if (result.commit.decision) {
    std::string line = json_text(json);
    line.pop_back();
    return line + ",\"verdict\":" + result.verdict + "}";
  }
  json["error"] = result.commit.error;
  if (!result.commit.error_place.file.empty()) json["place"] = place_json(result.commit.error_place);
  return json_text(json);
}

CommitResult read_result(const ordered_json &document, const std::string &name) {
  const int version = document.at("schema-version").get<int>();
  if (version != json_schema_version) {
    throw DocumentError(fmt::format("schema-version {}; expected {}", version, json_schema_version));
  }
  const ordered_json &json = document.at("commits").at(0);
  CommitResult result;
  if (json.contains("verdict")) {
    result.commit = read_verdict(json.at("verdict"), name);
    result.verdict = json_text(json.at("verdict"));
  } else {
    result.commit.error = json.at("error").get<std::string>();
    if (json.contains("place")) result.commit.error_place = read_place(json.at("place"));
  }
  result.commit.name = name;
  result.exit_status = json.at("status").get<int>();
  return result;
}

ordered_json summary_json(const SeriesSummary &summary, int exit_status) {
  ordered_json findings = ordered_json::array();
  for (const auto &[rule, count] : summary.findings) {
    ordered_json json = ordered_json::object();
    if (!rule.empty()) json["rule"] = rule;
    json["open"] = count.open;
    json["suppressed"] = count.suppressed;
    findings.push_back(json);
  }
  ordered_json json{{"commits", summary.commits},
                    {"accepted", summary.accepted},
                    {"accepted-with-warnings", summary.accepted_with_warnings},
                    {"rejected", summary.rejected},
                    {"not-decided", summary.not_decided},
                    {"findings", findings},
                    {"unused-suppressions", summary.unused_suppressions},
                    {"status", exit_status}};
  if (!summary.expired_suppressions.empty()) json["expired-suppressions"] = summary.expired_suppressions;
  if (summary.with_foreign_nodes != 0) json["with-foreign-nodes"] = summary.with_foreign_nodes;
  return json;
}

}  // namespace

void SeriesJson::write(const CommitResult &result) {
  if (!has_begun_) {
    const ordered_json program{{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
    out_ << "{\n  \"schema-version\": " << json_schema_version << ",\n  \"program\": " << json_text(program)
         << ",\n  \"commits\": [";
  }
  out_ << (has_begun_ ? ",\n    " : "\n    ") << commit_text(result) << std::flush;
  has_begun_ = true;
}

void SeriesJson::finish(const SeriesSummary &summary, int exit_status) {
  out_ << "\n  ],\n  \"summary\": " << json_text(summary_json(summary, exit_status)) << "\n}\n";
}

CommitResult read_single_result(std::string_view document, const std::string &name) {
  try {
    return read_result(ordered_json::parse(document), name);
  } catch (const UnknownNameError &error) {
    throw DocumentError(error.what());
  } catch (const ordered_json::exception &error) {
    throw DocumentError(fmt::format("no result of schema version {}: {}", json_schema_version, error.what()));
  }
}

}  // namespace report
