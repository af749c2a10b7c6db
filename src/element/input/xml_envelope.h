#ifndef ELEMENT_INPUT_XML_ENVELOPE_H
#define ELEMENT_INPUT_XML_ENVELOPE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "element/input/xml_reader.h"

namespace element {

/// Tells the elements in which protocols send a configuration from the configuration: <data>, <config>, and the
/// <rpc-reply> around them.
class XmlEnvelope {
 public:
  /// Errors name `origin` as the file.
  explicit XmlEnvelope(std::string origin) : origin_(std::move(origin)) {}

  /// Whether the element belongs to the envelope; if so, its end and all text up to the next start tag do, too.
  /// Precondition: no element of the configuration is open. Throws InputError for an edit, for another message than a
  /// reply with data, and for an element beside an envelope.
  bool takes(const XmlElement &element);

  /// Whether an element of the envelope is open.
  bool is_open() const { return !open_.empty(); }
  /// The text of the envelope's element that is open.
  void text(std::string_view part);
  /// The end of it. Throws InputError at the end of a reply that holds errors, or no data.
  void end();

 private:
  enum class Kind { content, reply, error, error_message, error_tag, error_part, request };
  struct Open {
    Kind kind;
    std::string name;
    std::size_t line;
  };

  std::optional<Kind> kind_of(const XmlElement &element) const;
  std::optional<Kind> outermost(const XmlElement &element) const;
  Kind part_of_reply(const XmlElement &element) const;
  void require_alone(const XmlElement &element);
  void require_data(std::size_t line) const;
  [[noreturn]] void refuse(std::size_t line, const std::string &fault, std::string_view expected) const;

  std::string origin_;
  std::vector<Open> open_;
  std::string outermost_;  ///< the envelope that the file begins with; empty: none
  bool has_begun_ = false;
  bool has_data_ = false;
  std::string message_;  ///< of the rpc-error that is open
  std::string tag_;
  std::vector<std::string> errors_;
};

}  // namespace element

#endif
