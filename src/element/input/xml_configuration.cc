#include "element/input/xml_configuration.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/expected_names.h"
#include "element/input/foreign_nodes.h"
#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"
#include "element/input/own_nodes.h"
#include "element/input/xml_envelope.h"
#include "element/input/xml_reader.h"

namespace element {
namespace {

bool is_blank(std::string_view text) { return text.find_first_not_of(kBlank) == std::string_view::npos; }

/// Line breaks are escaped, so that each line of what is written begins one node.
void append_escaped(std::string &out, std::string_view text) {
  for (const char c : text) {
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else if (c == '\n') {
      out += "&#10;";
    } else if (c == '\r') {
      out += "&#13;";
    } else {
      out += c;
    }
  }
}

/// An attribute that makes a configuration an edit: what to do with a node, or where to insert it.
bool is_of_edit(const XmlAttribute &attribute) {
  return (attribute.name_space == kNetconfNamespace && attribute.name == "operation") ||
         attribute.name_space == kYangNamespace;
}

class XmlFilter : public XmlEvents {
 public:
  XmlFilter(const Schema &schema, const std::string &origin, const ReadOptions &options)
      : schema_(schema),
        origin_(origin),
        options_(options),
        envelope_(origin),
        nodes_(schema, InputFormat::xml, origin) {}

  OwnConfiguration take_result() {
    return {std::move(out_), InputFormat::xml, nodes_.take_tree(), foreign_.result(origin_)};
  }

  void start(const XmlElement &element) override {
    if (element.has_attributes()) require_no_edit(element);
    if (foreign_depth_ != 0) {
      enter_foreign(element);
    } else if (nodes_.is_open() || !envelope_.takes(element)) {
      start_node(element);
    }
  }

  void text(std::string_view part) override {
    if (foreign_depth_ != 0) return;
    if (!nodes_.is_open()) {
      envelope_.text(part);
    } else if (nodes_.open_node().kind == NodeKind::leaf) {
      text_ += part;
      require_own_size(out_.size() + text_.size(), options_, origin_);
    } else if (!is_blank(part)) {
      nodes_.refuse(nodes_.open_line(), "text in a node that holds other nodes", "elements only");
    }
  }

  void end() override {
    if (foreign_depth_ != 0) {
      --foreign_depth_;
    } else if (nodes_.is_open()) {
      end_node();
    } else {
      envelope_.end();
    }
  }

 private:
  void start_node(const XmlElement &element) {
    const Module *module = schema_.find_namespace(element.name_space());
    if (module == nullptr) {
      pass_over(element);
      return;
    }
    const std::size_t line = element.line();
    if (element.has_attributes()) require_foreign_attributes(element, line);
    const SchemaNode &parent = nodes_.open_node();
    const SchemaNode &node = nodes_.child(module->name, element.name(), line);
    nodes_.open(node, line);
    out_ += "\n<";
    out_ += node.name;
    if (node.module != parent.module) out_.append(" xmlns=\"").append(module->name_space).append("\"");
    out_ += '>';
    require_own_size(out_.size(), options_, origin_);
  }

  void end_node() {
    const SchemaNode &node = nodes_.open_node();
    if (node.kind == NodeKind::leaf) {
      append_escaped(out_, text_);
      nodes_.set_text(text_);
      text_.clear();
    }
    out_.append("</").append(node.name).append(">");
    nodes_.close();
  }

  void pass_over(const XmlElement &element) {
    const std::string_view name_space = element.name_space();
    const std::string name = one_line(element.name());
    const auto refuse = [&](const std::string &fault) {
      nodes_.refuse(element.line(), fault, names_below(schema_, nodes_.open_node(), InputFormat::xml));
    };
    if (name_space.empty()) refuse(fmt::format("element {} without a namespace", name));
    if (name_space == kNetconfNamespace) refuse(fmt::format("element {} of NETCONF's namespace", name));
    if (options_.refuse_foreign) {
      nodes_.refuse(element.line(), foreign_fault(element.name(), name_space, InputFormat::xml), kOwnNodesAlone);
    }
    enter_foreign(element);
  }

  void enter_foreign(const XmlElement &element) {
    ++foreign_depth_;
    foreign_.count(element.name_space(), [&element] { return element.line(); });
  }

  void require_no_edit(const XmlElement &element) const {
    for (const XmlAttribute &attribute : element.attributes()) {
      if (!is_of_edit(attribute)) continue;
      nodes_.refuse(element.line(), fmt::format("{} (attribute {})", kEditGiven, one_line(attribute.name)),
                    std::string(kInsteadOfEdit));
    }
  }

  /// Annotations of other modules do not change what is configured.
  void require_foreign_attributes(const XmlElement &element, std::size_t line) const {
    for (const XmlAttribute &attribute : element.attributes()) {
      if (!attribute.name_space.empty() && schema_.find_namespace(attribute.name_space) == nullptr) continue;
      nodes_.refuse(line, fmt::format("attribute {} of element {}", one_line(attribute.name), one_line(element.name())),
                    "no attributes but annotations of other namespaces");
    }
  }

  const Schema &schema_;
  const std::string &origin_;
  const ReadOptions &options_;
  XmlEnvelope envelope_;
  OwnNodes nodes_;
  ForeignNodes foreign_;
  std::size_t foreign_depth_ = 0;  ///< open elements of what is passed over
  std::string text_;               ///< of the leaf that is open
  std::string out_;
};

}  // namespace

OwnConfiguration read_xml_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  XmlFilter filter(schema, input.origin(), options);
  if (read_xml(input, filter) == 0) {
    throw input_fault({input.origin()}, "no element", "at least one, without content to configure nothing");
  }
  return filter.take_result();
}

}  // namespace element
