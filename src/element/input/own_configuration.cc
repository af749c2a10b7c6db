#include "element/input/own_configuration.h"

#include <fmt/format.h>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/input/json_configuration.h"
#include "element/input/xml_configuration.h"

namespace element {

void require_own_size(std::size_t size, const ReadOptions &options, const std::string &origin) {
  if (size <= options.largest) return;
  throw input_fault({origin}, fmt::format("the element's own nodes take more than {} bytes", options.largest),
                    "at most that");
}

OwnConfiguration read_own_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  const char first = input.skip_blanks();
  // '#' begins NETCONF's chunks.
  if (first == '<' || first == '#') return read_xml_configuration(schema, input, options);
  if (first == '{') return read_json_configuration(schema, input, options);
  if (first == 0) {
    throw input_fault({input.origin()}, "empty", "XML elements or a JSON object ({} configures nothing)");
  }
  throw input_fault({input.origin(), input.next().line},
                    fmt::format("neither XML nor JSON begins with {}", one_line({&first, 1})), "'<' or '{'");
}

}  // namespace element
