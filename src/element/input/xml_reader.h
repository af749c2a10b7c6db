#ifndef ELEMENT_INPUT_XML_READER_H
#define ELEMENT_INPUT_XML_READER_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "element/input/input_pieces.h"

namespace element {

struct XmlAttribute {
  std::string_view name_space;  ///< empty: none
  std::string_view name;        ///< without prefix
  std::string_view value;
};

class XmlLines;

/// A start tag with its prefixes resolved. Valid while it is told.
class XmlElement {
 public:
  XmlElement(std::string_view name_space, std::string_view name, const char **attributes, XmlLines &lines)
      : name_space_(name_space), name_(name), attributes_(attributes), lines_(lines) {}

  std::string_view name_space() const { return name_space_; }  ///< empty: none
  std::string_view name() const { return name_; }              ///< without prefix
  bool has_attributes() const { return *attributes_ != nullptr; }
  /// In the order of the tag, without the declarations of namespaces.
  std::vector<XmlAttribute> attributes() const;
  /// The line of the input on which the tag begins, from 1.
  std::size_t line() const;

 private:
  std::string_view name_space_;
  std::string_view name_;
  const char **attributes_;
  XmlLines &lines_;
};

/// Is told what an XML input holds, in its order. Each function may throw; reading ends then with the same exception.
class XmlEvents {
 public:
  virtual ~XmlEvents() = default;

  virtual void start(const XmlElement &element) = 0;
  /// A part of the text of the element that is open: references and CDATA sections are resolved, line breaks are "\n".
  /// One text may come in several parts.
  virtual void text(std::string_view part) = 0;
  /// The end of the element that was started last and is still open; also of one without content.
  virtual void end() = 0;
};

/// Tells `events` all elements of an XML input: one document, or several in a row as NETCONF sends them, each with an
/// XML declaration or without, with NETCONF's framing of either version or without. Memory is bounded whatever the
/// input holds. Returns the number of outermost elements.
///
/// Throws InputError, which names file and line, if the input is not well-formed, is not UTF-8, has a document type
/// declaration, is nested deeper than 100 elements, or has a tag or comment of more than 1 MiB; and FileError where it
/// cannot be read.
std::size_t read_xml(InputPieces &input, XmlEvents &events);

}  // namespace element

#endif
