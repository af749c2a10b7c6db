#ifndef ELEMENT_EDIT_XML_NODE_H
#define ELEMENT_EDIT_XML_NODE_H

#include <cstddef>
#include <string>
#include <vector>

#include "element/input/input_pieces.h"

namespace element {

/// An XML attribute with its prefix resolved.
struct XmlNodeAttribute {
  std::string name_space;  ///< empty: none
  std::string name;
  std::string value;
};

/// An XML element with all it holds.
struct XmlNode {
  std::string name_space;  ///< empty: none
  std::string name;
  std::vector<XmlNodeAttribute> attributes;
  std::string text;  ///< all of the element's own
  std::vector<XmlNode> children;
  std::size_t line = 0;  ///< from 1

  /// The child of this name in the element's own namespace, or null.
  const XmlNode *child(std::string_view child_name) const;
};

/// The outermost elements of an input. Memory grows with it. Throws as read_xml does.
std::vector<XmlNode> read_xml_nodes(InputPieces &input);

}  // namespace element

#endif
