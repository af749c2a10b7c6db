#include "element/edit/json_node.h"

#include <algorithm>
#include <utility>

#include "element/input/json_reader.h"
#include "element/input/member_names.h"

namespace element {
namespace {

JsonNode::Kind node_kind(JsonKind kind) {
  switch (kind) {
    case JsonKind::null:
      return JsonNode::Kind::null;
    case JsonKind::boolean:
      return JsonNode::Kind::boolean;
    case JsonKind::number:
      return JsonNode::Kind::number;
    case JsonKind::text:
      return JsonNode::Kind::text;
  }
  return JsonNode::Kind::null;
}

class JsonNodeBuilder : public JsonEvents {
 public:
  explicit JsonNodeBuilder(const std::string &origin) : origin_(origin) {}

  void name(std::string_view name, std::size_t line) override {
    names_.add(name, line, origin_);
    name_ = name;
    line_ = line;
  }

  void scalar(const JsonScalar &value) override {
    JsonNode node = begin(node_kind(value.kind), line_);
    node.text = value.text;
    place(std::move(node));
  }

  void start_object(std::size_t line) override { open(JsonNode::Kind::object, line); }
  void end_object() override { close(); }
  void start_array(std::size_t line) override { open(JsonNode::Kind::array, line); }
  void end_array() override { close(); }

  JsonNode outermost;

 private:
  JsonNode begin(JsonNode::Kind kind, std::size_t line) {
    JsonNode node;
    node.kind = kind;
    node.line = name_.empty() ? line : line_;
    node.name = std::exchange(name_, "");
    return node;
  }

  void open(JsonNode::Kind kind, std::size_t line) {
    open_.push_back(begin(kind, line));
    names_.open();
    line_ = line;
  }

  void close() {
    JsonNode node = std::move(open_.back());
    open_.pop_back();
    names_.close();
    place(std::move(node));
  }

  void place(JsonNode node) {
    if (open_.empty()) {
      outermost = std::move(node);
    } else {
      open_.back().children.push_back(std::move(node));
    }
  }

  const std::string &origin_;
  std::vector<JsonNode> open_;
  MemberNames names_;
  std::string name_;      ///< of the member whose value comes next
  std::size_t line_ = 0;  ///< of that name, or of what was opened last
};

}  // namespace

const JsonNode *JsonNode::member(std::string_view member_name) const {
  const auto found =
      std::find_if(children.begin(), children.end(), [&](const JsonNode &child) { return child.name == member_name; });
  return found == children.end() ? nullptr : &*found;
}

QualifiedName qualified_name(std::string_view member) {
  const std::size_t colon = member.find(':');
  if (colon == std::string_view::npos) return {"", member};
  return {member.substr(0, colon), member.substr(colon + 1)};
}

JsonNode read_json_node(InputPieces &input) {
  JsonNodeBuilder builder(input.origin());
  read_json(input, builder);
  return std::move(builder.outermost);
}

}  // namespace element
