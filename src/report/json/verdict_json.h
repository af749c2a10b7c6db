#ifndef REPORT_JSON_VERDICT_JSON_H
#define REPORT_JSON_VERDICT_JSON_H

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "report/check_report.h"
#include "report/commit_report.h"

namespace report {

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
inline constexpr int json_schema_version = 2;

/// The whole report as one JSON document; docs/verdict.schema.json describes it.
void write_json(std::ostream &out, const CheckReport &report);

/// A text that is no verdict of this program; what() says why.
class DocumentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The commit of which a document that write_json wrote tells; `name` is what it is to be called. Throws DocumentError.
CommitReport read_json_report(std::string_view document, const std::string &name);

}  // namespace report

#endif
