#include "element/input/json_configuration.h"

#include <fmt/format.h>

#include <optional>
#include <utility>
#include <vector>

#include "element/input/expected_names.h"
#include "element/input/foreign_nodes.h"
#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/json_reader.h"
#include "element/input/netconf_names.h"
#include "element/input/own_nodes.h"

namespace element {
namespace {

constexpr std::string_view kOperation = "ietf-netconf:operation";

struct MemberName {
  std::string_view module;  ///< empty: not given
  std::string_view name;
};

MemberName split_member(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos) return {"", name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

/// Line breaks are escaped, so that each line of what is written begins one node.
void append_quoted(std::string &out, std::string_view text) {
  out += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      out += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
    } else {
      out += c;
    }
  }
  out += '"';
}

/// Follows a member that is passed over, and counts its nodes: each value that is no array.
class ForeignMember {
 public:
  explicit ForeignMember(ForeignNodes &nodes) : nodes_(nodes) {}

  bool is_open() const { return is_open_; }

  /// Begins with a name of this module, or with an annotation, whose content is no node.
  void begin(std::string_view module, std::size_t line, bool is_annotation) {
    is_open_ = true;
    is_annotation_ = is_annotation;
    name_ = module;
    line_ = line;
  }

  bool is_annotation() const { return is_annotation_; }

  /// Names without module are of the module around them.
  void name(std::string_view name, std::size_t line) {
    const std::string_view module = split_member(name).module;
    name_ = module.empty() ? modules_.back() : std::string(module);
    line_ = line;
  }

  void open(bool is_object) {
    if (is_object) count();
    modules_.push_back(name_);
  }

  void close() {
    name_ = modules_.back();
    modules_.pop_back();
    is_open_ = !modules_.empty();
  }

  void scalar() {
    count();
    is_open_ = !modules_.empty();
  }

 private:
  void count() {
    if (is_annotation_) return;
    nodes_.count(name_, [this] { return line_; });
  }

  ForeignNodes &nodes_;
  bool is_open_ = false;
  bool is_annotation_ = false;
  std::string name_;  ///< module of the value that comes next
  std::size_t line_ = 0;
  std::vector<std::string> modules_;  ///< of the objects and arrays that are open
};

class JsonFilter : public JsonEvents {
 public:
  JsonFilter(const Schema &schema, const std::string &origin, const ReadOptions &options)
      : schema_(schema),
        origin_(origin),
        options_(options),
        nodes_(schema, InputFormat::json, origin),
        foreign_(foreign_nodes_) {}

  OwnConfiguration take_result() {
    return {std::move(out_), InputFormat::json, nodes_.take_tree(), foreign_nodes_.result(origin_)};
  }

  void name(std::string_view name, std::size_t line) override {
    if (foreign_.is_open()) {
      if (foreign_.is_annotation() && name == kOperation) refuse_edit(line);
      foreign_.name(name, line);
      return;
    }
    line_ = line;
    const auto [module, bare] = split_member(name);
    if (name.starts_with('@')) {
      foreign_.begin("", line, true);
    } else if (!nodes_.is_open() && name == kYangPatchMember) {
      nodes_.refuse(line, fmt::format("{} (member {})", kEditGiven, kYangPatchMember), std::string(kInsteadOfEdit));
    } else if (!nodes_.is_open() && !has_envelope_ && name == kRestconfData) {
      open_envelope(line);
    } else {
      start_member(module, bare, line);
    }
  }

  void scalar(const JsonScalar &value) override {
    if (foreign_.is_open()) return foreign_.scalar();
    const Place place = places_.empty() ? Place::document : places_.back();
    if (place == Place::leaf_array) return append_to_leaf(value);
    if (member_ != nullptr && value.kind == JsonKind::null) refuse_null();
    if (member_ == nullptr || member_->kind != NodeKind::leaf) refuse_kind(line_);
    nodes_.open(*member_, line_);
    append_scalar(value);
    nodes_.set_text(value.kind == JsonKind::number ? whole_number(value.text) : std::string(value.text));
    close_node();
  }

  void start_object(std::size_t line) override {
    if (foreign_.is_open()) return foreign_.open(true);
    if (places_.empty() || is_envelope_next_) {
      if (places_.empty()) out_ += '{';
      is_envelope_next_ = false;
      places_.push_back(Place::envelope);
      return;
    }
    if (places_.back() == Place::list_array) {
      start_entry(line);
    } else {
      if (member_ == nullptr || member_->kind != NodeKind::container) refuse_kind(line);
      nodes_.open(*member_, line_);
      places_.push_back(Place::node);
    }
    out_ += '{';
    is_first_ = true;
    member_ = nullptr;
  }

  void end_object() override {
    if (foreign_.is_open()) return foreign_.close();
    const Place place = places_.back();
    places_.pop_back();
    if (place == Place::envelope) {
      if (places_.empty()) out_ += "\n}";
      return;
    }
    out_ += '}';
    close_node();
  }

  void start_array(std::size_t line) override {
    if (foreign_.is_open()) return foreign_.open(false);
    if (member_ == nullptr || member_->kind == NodeKind::container) refuse_kind(line);
    if (member_->kind == NodeKind::list) {
      nodes_.open_list(*member_, line_);
      lists_.push_back(member_);
      places_.push_back(Place::list_array);
      is_first_ = true;
    } else {
      nodes_.open(*member_, line_);
      places_.push_back(Place::leaf_array);
    }
    member_ = nullptr;
    out_ += '[';
  }

  void end_array() override {
    if (foreign_.is_open()) return foreign_.close();
    const Place place = places_.back();
    places_.pop_back();
    out_ += ']';
    if (place == Place::list_array) {
      lists_.pop_back();
      is_first_ = false;
    } else {
      close_node();
    }
  }

 private:
  /// What a brace or bracket that is open belongs to.
  enum class Place { document, envelope, node, list_array, leaf_array };

  void open_envelope(std::size_t line) {
    if (has_members_) {
      nodes_.refuse(line, fmt::format("member {} is not the only one of the file", kRestconfData),
                    "it around all others");
    }
    has_envelope_ = true;
    is_envelope_next_ = true;
  }

  void start_member(std::string_view given_module, std::string_view name, std::size_t line) {
    require_inside_envelope(name, line);
    const std::string_view module = given_module.empty() ? nodes_.open_node().module : given_module;
    if (module.empty()) {
      nodes_.refuse(line, fmt::format("top-level member {} without a module", one_line(name)), expected_names());
    }
    if (schema_.find_module(module) == nullptr) {
      pass_over(module, name, line);
      return;
    }
    const SchemaNode &parent = nodes_.open_node();
    member_ = &nodes_.child(module, name, line);
    begin_line();
    out_ += '"';
    if (member_->module != parent.module) out_.append(member_->module).append(":");
    out_.append(member_->name).append("\":");
  }

  void pass_over(std::string_view module, std::string_view name, std::size_t line) {
    if (options_.refuse_foreign) {
      nodes_.refuse(line, foreign_fault(name, module, InputFormat::json), kOwnNodesAlone);
    }
    foreign_.begin(module, line, false);
  }

  void require_inside_envelope(std::string_view name, std::size_t line) {
    if (has_envelope_ && places_.size() == 1) {
      nodes_.refuse(line, fmt::format("member {} beside {}", one_line(name), kRestconfData), "it around all others");
    }
    if (!nodes_.is_open()) has_members_ = true;
  }

  void start_entry(std::size_t line) {
    begin_line();
    nodes_.open_entry(*lists_.back(), line);
    places_.push_back(Place::node);
  }

  /// A name, or an entry of a list, on a line of its own.
  void begin_line() {
    out_ += is_first_ ? "\n" : ",\n";
    is_first_ = false;
    require_own_size(out_.size(), options_, origin_);
  }

  void append_scalar(const JsonScalar &value) {
    if (value.kind == JsonKind::text) {
      append_quoted(out_, value.text);
    } else {
      out_ += value.text;
    }
    require_own_size(out_.size(), options_, origin_);
  }

  /// Only [null] means something, for a leaf without a value; the parser says so for other values.
  void append_to_leaf(const JsonScalar &value) {
    if (out_.back() != '[') nodes_.refuse(line_, "more than one value", "a single value");
    append_scalar(value);
  }

  void close_node() {
    nodes_.close();
    is_first_ = false;
    member_ = nullptr;
  }

  std::string expected_names() const { return names_below(schema_, nodes_.open_node(), InputFormat::json); }

  [[noreturn]] void refuse_kind(std::size_t line) const {
    const bool is_entry = !places_.empty() && places_.back() == Place::list_array;
    const SchemaNode *node = is_entry ? lists_.back() : member_;
    if (node == nullptr) nodes_.refuse(line, "value without a name", "a single value, or members of an object");
    const char *expected = node->kind == NodeKind::leaf   ? "a single value, or [null] for a leaf without a value"
                           : node->kind == NodeKind::list ? "an array of objects"
                                                          : "an object";
    nodes_.refuse(line, fmt::format("\"{}\" with a value of another kind", node->name), expected);
  }

  [[noreturn]] void refuse_null() const {
    const char *without_value = member_->type == ValueType::empty ? "[null], for a leaf without a value; " : "";
    nodes_.refuse(line_, fmt::format("\"{}\" is null", member_->name),
                  fmt::format("{}what is configured; a merge patch is given with --edit", without_value));
  }

  [[noreturn]] void refuse_edit(std::size_t line) const {
    nodes_.refuse(line, fmt::format("{} (annotation {})", kEditGiven, kOperation), std::string(kInsteadOfEdit));
  }

  const Schema &schema_;
  const std::string &origin_;
  const ReadOptions &options_;
  OwnNodes nodes_;
  ForeignNodes foreign_nodes_;
  ForeignMember foreign_;
  std::vector<Place> places_;
  std::vector<const SchemaNode *> lists_;  ///< whose arrays are open
  const SchemaNode *member_ = nullptr;     ///< whose name was read last and whose value comes next
  std::size_t line_ = 0;                   ///< of that name
  bool is_first_ = true;                   ///< nothing stands before in the object or array that is open
  bool is_envelope_next_ = false;
  bool has_envelope_ = false;
  bool has_members_ = false;
  std::string out_;
};

}  // namespace

OwnConfiguration read_json_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options) {
  JsonFilter filter(schema, input.origin(), options);
  read_json(input, filter);
  return filter.take_result();
}

}  // namespace element
