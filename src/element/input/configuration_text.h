#ifndef ELEMENT_INPUT_CONFIGURATION_TEXT_H
#define ELEMENT_INPUT_CONFIGURATION_TEXT_H

#include <string>

namespace element {

enum class InputFormat { xml, json };

/// The text of an operator's configuration, checked and ready for a parser.
struct ConfigurationText {
  std::string text;  ///< byte order mark and NETCONF's <config> or <data> tags replaced by blanks
  InputFormat format = InputFormat::xml;
};

/// Detects the format and prepares the text for a parser; every line keeps its number. Throws InputError, which names
/// `origin` as the file, if the text is not UTF-8, is neither XML nor JSON, is XML without an element, or is JSON that
/// is not well-formed. Whether XML is well-formed is checked by its parser.
ConfigurationText prepare_configuration(std::string text, const std::string &origin);

}  // namespace element

#endif
