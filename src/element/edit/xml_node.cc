#include "element/edit/xml_node.h"

#include <algorithm>

#include "element/input/xml_reader.h"

namespace element {
namespace {

class XmlNodeBuilder : public XmlEvents {
 public:
  void start(const XmlElement &element) override {
    XmlNode node;
    node.name_space = element.name_space();
    node.name = element.name();
    node.line = element.line();
    for (const XmlAttribute &attribute : element.attributes()) {
      node.attributes.push_back(
          {std::string(attribute.name_space), std::string(attribute.name), std::string(attribute.value)});
    }
    open_.push_back(std::move(node));
  }

  void text(std::string_view part) override { open_.back().text += part; }

  void end() override {
    XmlNode node = std::move(open_.back());
    open_.pop_back();
    (open_.empty() ? outermost : open_.back().children).push_back(std::move(node));
  }

  std::vector<XmlNode> outermost;

 private:
  std::vector<XmlNode> open_;
};

}  // namespace

const XmlNode *XmlNode::child(std::string_view child_name) const {
  const auto found = std::find_if(children.begin(), children.end(), [&](const XmlNode &node) {
    return node.name == child_name && node.name_space == name_space;
  });
  return found == children.end() ? nullptr : &*found;
}

std::vector<XmlNode> read_xml_nodes(InputPieces &input) {
  XmlNodeBuilder builder;
  read_xml(input, builder);
  return std::move(builder.outermost);
}

}  // namespace element
