#ifndef CLI_OUTPUT_JSON_INPUT_H
#define CLI_OUTPUT_JSON_INPUT_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "cli/findings/decided_commit.h"

namespace cli {

/// A text that is no verdict of this program; what() says why.
class DocumentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The commit of which a document that write_json wrote tells; `name` is what it is to be called. Throws DocumentError.
DecidedCommit read_json_report(std::string_view document, const std::string &name);

}  // namespace cli

#endif
