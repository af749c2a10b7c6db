#include "element/edit/edit_target.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "element/edit/json_node.h"
#include "element/input/input_text.h"

namespace element {
namespace {

constexpr const char *kTargetExpected = "a path from the top, as /base:config/vlan=5";

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

/// Without percent-encoding; nothing where it is wrong.
std::optional<std::string> decoded(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      plain += text[i];
      continue;
    }
    const std::string_view digits = text.substr(i + 1, 2);
    unsigned byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || error != std::errc{} || end != digits.data() + 2) return std::nullopt;
    plain += static_cast<char>(byte);
    i += 2;
  }
  return plain;
}

class TargetReader {
 public:
  TargetReader(EditModel &model, std::string_view target, std::size_t line)
      : model_(model), target_(target), line_(line) {}

  void run() {
    if (!target_.starts_with('/')) refuse();
    if (target_ == "/") return;
    for (const std::string_view step : split(target_.substr(1), '/')) add(step);
  }

 private:
  void add(std::string_view step) {
    const std::size_t equals = step.find('=');
    const SchemaNode &schema = child(step.substr(0, equals));
    if (is_key(schema)) {
      model_.fail(line_, fmt::format("target {} is a key of an entry", schema.name), "the entry itself");
    }
    model_.path().push_back({&schema, {}});
    const bool has_keys = equals != std::string_view::npos;
    if (has_keys != (schema.kind == NodeKind::list)) refuse_keys(schema);
    if (has_keys) set_keys(schema, split(step.substr(equals + 1), ','));
  }

  const SchemaNode &child(std::string_view step) const {
    const SchemaNode &parent = model_.path().empty() ? model_.schema().root() : *model_.path().back().schema;
    const auto [given, name] = qualified_name(step);
    if (name.empty()) refuse();
    const Module *module = model_.schema().find_module(given.empty() ? std::string_view(parent.module) : given);
    return model_.own_child(parent, module, {given, name, line_}, InputFormat::json);
  }

  void set_keys(const SchemaNode &list, const std::vector<std::string_view> &texts) {
    if (texts.size() != list.key_count) refuse_keys(list);
    std::vector<Value> keys;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::optional<std::string> text = decoded(texts[i]);
      if (!text) refuse();
      keys.push_back(model_.value(*list.children[i], *text, line_));
    }
    model_.path().back().keys = std::move(keys);
  }

  [[noreturn]] void refuse_keys(const SchemaNode &node) const {
    if (node.kind != NodeKind::list) model_.fail(line_, fmt::format("{} with a key", node.name), "no key");
    std::vector<std::string> keys;
    for (std::size_t i = 0; i < node.key_count; ++i) keys.push_back(node.children[i]->name);
    model_.fail(line_, fmt::format("target \"{}\" without all keys of {}", one_line(target_), node.name),
                fmt::format("{}={}", node.name, fmt::join(keys, ",")));
  }

  [[noreturn]] void refuse() const {
    model_.fail(line_, fmt::format("target \"{}\"", one_line(target_)), kTargetExpected);
  }

  EditModel &model_;
  std::string_view target_;
  std::size_t line_;
};

}  // namespace

void read_target(EditModel &model, std::string_view target, std::size_t line) {
  TargetReader(model, target, line).run();
}

}  // namespace element
