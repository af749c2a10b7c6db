#include "report/json/series_json.h"

#include <nlohmann/json.hpp>
#include <string>

#include "report/json/verdict_json.h"

namespace report {
namespace {

using nlohmann::ordered_json;

// Names of folders and messages may hold bytes that are not UTF-8.
std::string text(const ordered_json &json) { return json.dump(-1, ' ', false, ordered_json::error_handler_t::replace); }

ordered_json commit_json(const CommitResult &result) {
  ordered_json json{{"name", result.commit.name}, {"status", result.exit_status}};
  if (result.commit.decision) {
    json["verdict"] = ordered_json::parse(result.document);
  } else {
    json["error"] = result.commit.error;
  }
  return json;
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
  if (summary.with_foreign_nodes != 0) json["with-foreign-nodes"] = summary.with_foreign_nodes;
  return json;
}

}  // namespace

void SeriesJson::write(CommitResult result) {
  if (!has_begun_) {
    const ordered_json program{{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
    out_ << "{\n  \"schema-version\": " << json_schema_version << ",\n  \"program\": " << text(program)
         << ",\n  \"commits\": [";
  }
  out_ << (has_begun_ ? ",\n    " : "\n    ") << text(commit_json(result)) << std::flush;
  has_begun_ = true;
}

void SeriesJson::finish(const SeriesSummary &summary, int exit_status) {
  out_ << "\n  ],\n  \"summary\": " << text(summary_json(summary, exit_status)) << "\n}\n";
}

}  // namespace report
