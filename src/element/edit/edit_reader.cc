#include "element/edit/edit_reader.h"

#include <vector>

#include "element/edit/edit_fault.h"
#include "element/edit/json_node.h"
#include "element/edit/merge_patch.h"
#include "element/edit/netconf_edit.h"
#include "element/edit/xml_node.h"
#include "element/edit/yang_patch.h"

namespace element {
namespace {

EditFile read_xml_edits(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  const std::vector<XmlNode> outermost = read_xml_nodes(input);
  if (outermost.empty() || !is_yang_patch(outermost.front())) {
    return netconf_edits(schema, outermost, input.origin(), options);
  }
  if (outermost.size() > 1) {
    throw edit_fault({input.origin()}, outermost[1].line, {}, "an element behind a YANG patch", "the patch alone");
  }
  return yang_patch_edits(schema, outermost.front(), input.origin(), options);
}

EditFile read_json_edits(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  const JsonNode outermost = read_json_node(input);
  if (is_yang_patch(outermost)) return yang_patch_edits(schema, outermost, input.origin(), options);
  return merge_patch_edit(schema, outermost, input.origin(), options);
}

EditFile read_edit_file(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  const char first = input.skip_blanks();
  // '#' begins NETCONF's chunks.
  if (first == '<' || first == '#') return read_xml_edits(schema, input, options);
  if (first == '{') return read_json_edits(schema, input, options);
  throw edit_fault({input.origin()}, first == 0 ? 0 : input.next().line, {}, "neither XML nor a JSON object",
                   "an edit-config, a YANG patch or a JSON merge patch");
}

}  // namespace

EditFile read_edits(const Schema &schema, const std::filesystem::path &file, const ReadOptions &options) {
  InputPieces input(file);
  return read_edit_file(schema, input, options);
}

EditFile parse_edits(const Schema &schema, std::string_view text, const std::string &origin,
                     const ReadOptions &options) {
  InputPieces input(text, origin);
  return read_edit_file(schema, input, options);
}

}  // namespace element
