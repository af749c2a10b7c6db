#include "element/edit/edit_reader.h"

#include "element/edit/edit_fault.h"
#include "element/edit/netconf_edit.h"
#include "element/edit/xml_node.h"

namespace element {
namespace {

EditFile read_edit_file(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  if (input.skip_blanks() != '<') throw edit_fault(input.origin(), 0, {}, "no XML", "an edit in XML");
  return netconf_edits(schema, read_xml_nodes(input), input.origin(), options);
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
