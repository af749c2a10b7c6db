#include "maintenance/transcript/json.h"

#include <array>
#include <bit>
#include <nlohmann/json.hpp>

#include "element/input/utf8.h"

namespace transcript {

namespace {

using Json = nlohmann::ordered_json;
using recording::AgentValue;
using recording::Call;
using recording::Callback;
using recording::Handle;
using recording::HandleKind;
using recording::Item;
using recording::Items;

constexpr int kVersion = 1;
constexpr std::array<const char *, 8> kHandleKinds{"none",    "context", "middleware", "instance",
                                                   "session", "cursor",  "category",   "other"};

struct TypeName {
  std::uint32_t type;
  const char *name;
};
constexpr TypeName kTypeNames[] = {
    {recording::kNoExists, "unset"},  {recording::kXmlTag, "tag"},     {recording::kString, "str"},
    {recording::kBuffer, "buf"},      {recording::kInt8, "int8"},      {recording::kInt16, "int16"},
    {recording::kInt32, "int32"},     {recording::kInt64, "int64"},    {recording::kUint8, "uint8"},
    {recording::kUint16, "uint16"},   {recording::kUint32, "uint32"},  {recording::kUint64, "uint64"},
    {recording::kDouble, "double"},   {recording::kIpv4, "ipv4"},      {recording::kIpv6, "ipv6"},
    {recording::kBool, "bool"},       {recording::kEnumValue, "enum"}, {recording::kList, "list"},
    {recording::kDefault, "default"}, {recording::kEmpty, "empty"}};

[[noreturn]] void fail(const std::string &what, const std::string &expected) {
  throw JsonError(what + ": expected " + expected);
}

// --- writing ---

Json json_of(const std::string &text) {
  if (!element::find_invalid_utf8(text)) return text;
  std::string digits;
  for (const char c : text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    digits += kDigits[static_cast<unsigned char>(c) >> 4];
    digits += kDigits[static_cast<unsigned char>(c) & 15];
  }
  return {{"hex", digits}};
}

bool has_text(std::uint32_t type) {
  return type == recording::kString || type == recording::kBuffer || type == recording::kIpv6;
}

bool is_signed(std::uint32_t type) {
  return (type >= recording::kInt8 && type <= recording::kInt64) || type == recording::kEnumValue;
}

Json json_of(const AgentValue &value) {
  std::string name = std::to_string(value.type);
  for (const TypeName &known : kTypeNames) {
    if (known.type == value.type) name = known.name;
  }
  if (has_text(value.type)) return {{name, json_of(value.text)}};
  if (is_signed(value.type)) return {{name, static_cast<std::int64_t>(value.bits)}};
  return {{name, value.bits}};
}

Json json_of(const Item &item) {
  struct Visitor {
    Json operator()(std::int64_t number) const { return {{"signed", number}}; }
    Json operator()(std::uint64_t number) const { return {{"unsigned", number}}; }
    Json operator()(double number) const { return {{"real", std::bit_cast<std::uint64_t>(number)}}; }
    Json operator()(const std::string &text) const { return json_of(text); }
    Json operator()(recording::Null) const { return nullptr; }
    Json operator()(const Handle &handle) const {
      return {{kHandleKinds.at(static_cast<std::size_t>(handle.kind)), handle.number}};
    }
    Json operator()(const AgentValue &value) const { return {{"value", json_of(value)}}; }
  };
  return std::visit(Visitor{}, item);
}

Json json_of(std::int64_t number) { return number; }

template <typename T>
Json json_of(const std::optional<T> &value) {
  return value ? Json(json_of(*value)) : Json(nullptr);
}

Json json_of(const Call &call);
Json json_of(const Callback &callback);

template <typename T>
Json list_of(const std::vector<T> &items) {
  Json list = Json::array();
  for (const T &item : items) list.push_back(json_of(item));
  return list;
}

Json json_of(const recording::KeyPath &path) {
  Json list = Json::array();
  for (const auto &element : path) list.push_back(list_of(element));
  return list;
}

Json json_of(const Callback &callback) {
  return {{"path", json_of(callback.path)},     {"operation", callback.operation},
          {"old", json_of(callback.old_value)}, {"new", json_of(callback.new_value)},
          {"calls", list_of(callback.calls)},   {"answer", callback.answer}};
}

Json json_of(const Call &call) {
  Json json{{"function", recording::name(call.function)}, {"arguments", list_of(call.arguments)}};
  if (call.format) {
    json["format"] = json_of(call.format->text);
    json["format-arguments"] = list_of(call.format->arguments);
  }
  if (!call.callbacks.empty()) json["callbacks"] = list_of(call.callbacks);
  if (call.result) json["result"] = *call.result;
  if (call.error) json["confd-errno"] = *call.error;
  json["outputs"] = list_of(call.outputs);
  json["nanoseconds"] = call.duration;
  return json;
}

Json json_of(const recording::Header &header) {
  return {{"version", kVersion},
          {"library", json_of(header.library)},
          {"recorder", json_of(header.recorder)},
          {"time", header.time},
          {"point", json_of(header.point)},
          {"transaction", header.transaction},
          {"path", json_of(header.path)},
          {"value", json_of(header.value)},
          {"limits", list_of(header.limits)},
          {"last-extension", header.last_extension ? Json(*header.last_extension) : Json(nullptr)}};
}

// --- reading ---

const Json &member(const Json &json, const char *name) {
  if (!json.is_object() || !json.contains(name)) fail("an object", std::string("a member \"") + name + "\"");
  return json.at(name);
}

template <typename T>
T number(const Json &json, const char *name) {
  const Json &value = member(json, name);
  if (!value.is_number_integer()) fail(name, "a whole number");
  return value.get<T>();
}

unsigned digit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  fail("hex", "digits 0 to 9 and a to f");
}

std::string text(const Json &json) {
  if (json.is_string()) return json.get<std::string>();
  if (!json.is_object() || !json.contains("hex") || !json["hex"].is_string())
    fail("a text", "a string or {\"hex\": ...}");
  const std::string digits = json["hex"].get<std::string>();
  if (digits.size() % 2 != 0) fail("hex", "an even number of digits");
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(digit(digits[i]) << 4 | digit(digits[i + 1]));
  }
  return bytes;
}

std::uint32_t type_named(const std::string &name) {
  for (const TypeName &known : kTypeNames) {
    if (name == known.name) return known.type;
  }
  fail("\"" + name + "\"", "the name of a type of value");
}

/// The only member of an object.
std::pair<std::string, Json> only_member(const Json &json) {
  if (!json.is_object() || json.size() != 1) fail("an argument", "a string, null, or an object of one member");
  return {json.begin().key(), json.begin().value()};
}

AgentValue agent_value(const Json &json) {
  const auto [name, content] = only_member(json);
  AgentValue value;
  value.type = type_named(name);
  if (has_text(value.type)) {
    value.text = text(content);
  } else if (content.is_number_integer()) {
    value.bits = content.is_number_unsigned() ? content.get<std::uint64_t>()
                                              : static_cast<std::uint64_t>(content.get<std::int64_t>());
  } else {
    fail(name, "a whole number");
  }
  return value;
}

Item item(const Json &json) {
  if (json.is_null()) return recording::Null{};
  if (json.is_string() || (json.is_object() && json.contains("hex"))) return text(json);
  const auto [name, content] = only_member(json);
  if (name == "value") return agent_value(content);
  if (!content.is_number_integer()) fail(name, "a whole number");
  if (name == "signed") return content.get<std::int64_t>();
  if (name == "unsigned") return content.get<std::uint64_t>();
  if (name == "real") return std::bit_cast<double>(content.get<std::uint64_t>());
  for (std::size_t i = 0; i < kHandleKinds.size(); ++i) {
    if (name == kHandleKinds[i]) return Handle{static_cast<HandleKind>(i), content.get<std::uint64_t>()};
  }
  fail("\"" + name + "\"", "a kind of argument");
}

template <typename Read>
auto list(const Json &json, const char *name, Read read) {
  std::vector<decltype(read(json))> result;
  const Json &items = member(json, name);
  if (!items.is_array()) fail(name, "a list");
  for (const Json &one : items) result.push_back(read(one));
  return result;
}

template <typename Read>
auto optional(const Json &json, const char *name, Read read) {
  std::optional<decltype(read(json))> result;
  if (json.contains(name) && !json.at(name).is_null()) result = read(json.at(name));
  return result;
}

std::int64_t whole_number(const Json &json) {
  if (!json.is_number_integer()) fail("a number", "a whole number");
  return json.get<std::int64_t>();
}

recording::KeyPath key_path(const Json &json) {
  return list(json, "path", [](const Json &element) {
    std::vector<AgentValue> values;
    for (const Json &value : element) values.push_back(agent_value(value));
    return values;
  });
}

Call call(const Json &json);

Callback callback(const Json &json) {
  Callback callback;
  callback.path = key_path(json);
  callback.operation = number<std::int64_t>(json, "operation");
  callback.old_value = optional(json, "old", agent_value);
  callback.new_value = optional(json, "new", agent_value);
  callback.calls = list(json, "calls", call);
  callback.answer = number<std::int64_t>(json, "answer");
  return callback;
}

Call call(const Json &json) {
  Call call;
  const std::string name = text(member(json, "function"));
  const std::optional<recording::Function> function = recording::function_named(name);
  if (!function) fail("\"" + name + "\"", "the name of a function");
  call.function = *function;
  call.arguments = list(json, "arguments", item);
  if (json.contains("format")) call.format = {text(json.at("format")), list(json, "format-arguments", item)};
  if (json.contains("callbacks")) call.callbacks = list(json, "callbacks", callback);
  call.result = optional(json, "result", whole_number);
  call.error = optional(json, "confd-errno", whole_number);
  call.outputs = list(json, "outputs", item);
  call.duration = number<std::uint64_t>(json, "nanoseconds");
  return call;
}

recording::Header header(const Json &json) {
  recording::Header header;
  if (number<int>(json, "version") != kVersion) fail("version", std::to_string(kVersion));
  header.library = text(member(json, "library"));
  header.recorder = text(member(json, "recorder"));
  header.time = number<std::uint64_t>(json, "time");
  header.point = text(member(json, "point"));
  header.transaction = number<std::int64_t>(json, "transaction");
  header.path = key_path(json);
  header.value = optional(json, "value", agent_value);
  header.limits = list(json, "limits", call);
  header.last_extension = optional(json, "last-extension", whole_number);
  return header;
}

}  // namespace

std::string to_json(const recording::Recording &recording) {
  Json json = json_of(recording.header);
  json["calls"] = list_of(recording.calls);
  json["verdict"] = json_of(recording.trailer.verdict);
  json["message"] = json_of(recording.trailer.message);
  json["nanoseconds"] = recording.trailer.duration;
  constexpr bool kAsciiAlone = true;
  return json.dump(1, ' ', kAsciiAlone) + '\n';
}

recording::Recording from_json(std::string_view document) {
  try {
    const Json json = Json::parse(document);
    recording::Recording recording;
    recording.header = header(json);
    recording.calls = list(json, "calls", call);
    recording.trailer.verdict = optional(json, "verdict", whole_number);
    recording.trailer.message = optional(json, "message", text);
    recording.trailer.duration = number<std::uint64_t>(json, "nanoseconds");
    return recording;
  } catch (const Json::exception &error) {
    throw JsonError(error.what());
  }
}

}  // namespace transcript
