#ifndef ELEMENT_INPUT_CONFIGURATION_TEXT_H
#define ELEMENT_INPUT_CONFIGURATION_TEXT_H

#include <string>

namespace element {

enum class InputFormat { xml, json };

/// An operator's configuration, ready for a parser.
struct ConfigurationText {
  std::string text;  ///< without byte order mark and NETCONF's wrapper; blanks stand for them
  InputFormat format = InputFormat::xml;
};

/// Tells the format and makes out of the text what a parser can be given, every line with its number. Throws
/// InputError, with `origin` for the file's name, where the text is not UTF-8, neither XML nor JSON, XML without an
/// element, or JSON that is not well-formed. XML that is not well-formed is left to its parser.
ConfigurationText prepare_configuration(std::string text, const std::string &origin);

}  // namespace element

#endif
