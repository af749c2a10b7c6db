#include <algorithm>
#include <cstdarg>
#include <optional>
#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "fuzz_target.h"
#include "host/seam/agent_values.h"
#include "host/seam/resolve.h"

namespace {

const element::Schema &schema() {
  static const element::Schema model;
  return model;
}

struct Outcome {
  int reason = 0;
  element::Path path;  ///< where there is no reason against it

  bool operator==(const Outcome &other) const {
    return reason == other.reason && element::to_text(path) == element::to_text(other.path);
  }
};

Outcome outcome_of(const host::ResolvedPath &resolved) {
  Outcome outcome;
  for (const host::ResolvedPath::Step &step : resolved) {
    outcome.path.push_back({step.schema, {}});
    const std::size_t key_count = step.has_keys ? step.schema->key_count : 0;
    for (std::size_t i = 0; i < key_count; ++i) {
      outcome.path.back().keys.push_back(host::from_agent(resolved.keys(step)[i]).value());
    }
  }
  return outcome;
}

Outcome resolve(const char *format, ...) {
  host::ResolvedPath resolved;
  std::va_list arguments;
  va_start(arguments, format);
  const int reason = resolved.resolve(schema(), format, arguments);
  va_end(arguments);
  if (reason == 0) return outcome_of(resolved);
  require(reason == CONFD_ERR_BADPATH || reason == CONFD_ERR_BADTYPE, "a path is refused for one of two reasons");
  return {reason, {}};
}

/// What the reader of the element's own paths makes of it.
std::optional<element::Path> parsed(const std::string &text) {
  try {
    return element::parse_path(schema(), text);
  } catch (const element::PathError &) {
    return std::nullopt;
  }
}

bool goes_below_a_whole_list(const element::Path &path) {
  for (std::size_t i = 0; i + 1 < path.size(); ++i) {
    if (path[i].schema->kind == element::NodeKind::list && path[i].keys.empty()) return true;
  }
  return false;
}

/// The text as a format in which nothing is substituted: conversions are doubled, what is none stays and spoils it.
std::string as_format(const std::string &text) {
  std::string format;
  std::size_t i = 0;
  while (i < text.size()) {
    const std::size_t after = text[i] == '%' ? std::min(text.find_first_not_of('l', i + 1), text.size()) : i;
    const bool is_conversion =
        after != i && after < text.size() && std::string("sdiux").find(text[after]) != std::string::npos;
    if (is_conversion) format += '%';
    format.append(text, i, after + 1 - i);
    i = after + 1;
  }
  return format;
}

void read_as_a_path(const std::string &text) {
  const Outcome outcome = resolve("%s", text.c_str());
  const std::optional<element::Path> expected = parsed(text);
  const bool is_path = expected && !goes_below_a_whole_list(*expected);
  require((outcome.reason == 0) == is_path, "both readers take the same paths");
  resolve(as_format(text).c_str());
  if (!is_path) return;
  require(element::to_text(outcome.path) == element::to_text(*expected), "both readers read the same");
  require(resolve("%s", element::to_text(outcome.path).c_str()) == outcome, "a path that was written is read again");
  if (text.find('%') == std::string::npos) require(resolve(text.c_str()) == outcome, "a format reads as its text");
}

void read_as_a_key(const std::string &text) {
  const Outcome outcome = resolve("/internal/int-vpws-group{%s}/int-vpws{%s %u}/id", text.c_str(), text.c_str(), 7U);
  require(outcome.reason == 0, "a text key takes any text");
  require(outcome.path[1].keys == std::vector<element::Value>{text}, "an argument in braces is one key");
  require(outcome.path[2].keys == std::vector<element::Value>{text, 7U}, "and stands beside others");
  const Outcome number = resolve("%s{%s}", "/base:config/service-port", text.c_str());
  require(number.reason != CONFD_ERR_BADPATH, "a key that is no number is of the wrong type");
}

}  // namespace

/// Any text formatted into a path is read as the element's own paths are, or refused; as an argument in braces it is
/// one key.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  std::string text(reinterpret_cast<const char *>(data), size);
  text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
  read_as_a_path(text);
  read_as_a_key(text);
  return 0;
}
