#include "maintenance/transcript/text.h"

#include <arpa/inet.h>
#include <fmt/format.h>

#include <array>
#include <bit>
#include <chrono>
#include <ctime>

#include "report/escape/printable.h"

namespace transcript {

namespace {

using recording::AgentValue;
using recording::Call;
using recording::Callback;
using recording::Handle;
using recording::Item;

std::string quoted(const std::string &text) {
  std::string result = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (c == '\n') {
      result += "\\n";
    } else if (byte < 0x20 || byte > 0x7e) {
      result += fmt::format("\\x{:02x}", byte);
    } else {
      result += c;
    }
  }
  return result + '"';
}

std::string ipv4(std::uint64_t bits) {
  return fmt::format("{}.{}.{}.{}", bits >> 24 & 255, bits >> 16 & 255, bits >> 8 & 255, bits & 255);
}

std::string ipv6(const std::string &bytes) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  return bytes.size() == 16 && ::inet_ntop(AF_INET6, bytes.data(), text.data(), text.size()) != nullptr ? text.data()
                                                                                                        : quoted(bytes);
}

std::string text_of(const AgentValue &value) {
  const auto number = static_cast<std::int64_t>(value.bits);
  switch (value.type) {
    case recording::kBuffer:
    case recording::kString:
      return quoted(value.text);
    case recording::kNoExists:
      return "unset";
    case recording::kXmlTag:
      return fmt::format("tag {}", value.bits & 0xffffffffU);
    case recording::kInt8:
    case recording::kInt16:
    case recording::kInt32:
    case recording::kInt64:
      return fmt::format("{}", number);
    case recording::kEnumValue:
      return fmt::format("enum {}", number);
    case recording::kDouble:
      return fmt::format("{}", std::bit_cast<double>(value.bits));
    case recording::kIpv4:
      return ipv4(value.bits);
    case recording::kIpv6:
      return ipv6(value.text);
    case recording::kBool:
      return value.bits != 0 ? "true" : "false";
    case recording::kDefault:
      return "default";
    case recording::kEmpty:
      return "empty";
    default:
      return fmt::format("{}", value.bits);
  }
}

std::string text_of(const Handle &handle) {
  constexpr std::array<std::string_view, 8> kKinds{"none",    "context", "middleware", "instance",
                                                   "session", "cursor",  "category",   "another"};
  const std::string_view kind = kKinds.at(static_cast<std::size_t>(handle.kind));
  return handle.number == 0 ? std::string(kind) : fmt::format("{} {}", kind, handle.number);
}

std::string text_of(const Item &item) {
  struct Visitor {
    std::string operator()(std::int64_t number) const { return fmt::format("{}", number); }
    std::string operator()(std::uint64_t number) const { return fmt::format("{}", number); }
    std::string operator()(double number) const { return fmt::format("{}", number); }
    std::string operator()(const std::string &text) const { return quoted(text); }
    std::string operator()(recording::Null) const { return "null"; }
    std::string operator()(const Handle &handle) const { return text_of(handle); }
    std::string operator()(const AgentValue &value) const { return text_of(value); }
  };
  return std::visit(Visitor{}, item);
}

std::string joined(const recording::Items &items) {
  std::string text;
  for (const Item &item : items) {
    if (!text.empty()) text += ", ";
    text += text_of(item);
  }
  return text;
}

std::string time_text(std::uint64_t nanoseconds) {
  if (nanoseconds < 10'000) return fmt::format("{} ns", nanoseconds);
  if (nanoseconds < 10'000'000) return fmt::format("{} us", nanoseconds / 1000);
  return fmt::format("{} ms", nanoseconds / 1'000'000);
}

std::string date_text(std::uint64_t nanoseconds) {
  const auto seconds = static_cast<std::time_t>(nanoseconds / 1'000'000'000U);
  std::tm date{};
  ::gmtime_r(&seconds, &date);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:09}Z", date.tm_year + 1900, date.tm_mon + 1, date.tm_mday,
                     date.tm_hour, date.tm_min, date.tm_sec, nanoseconds % 1'000'000'000U);
}

std::string operation_text(std::int64_t operation) {
  constexpr std::array<std::string_view, 7> kOperations{"",          "created",     "deleted",      "modified",
                                                        "value set", "moved after", "attribute set"};
  const bool is_known = operation > 0 && operation < static_cast<std::int64_t>(kOperations.size());
  return is_known ? std::string(kOperations[static_cast<std::size_t>(operation)])
                  : fmt::format("operation {}", operation);
}

std::string answer_to_change(std::int64_t answer) {
  constexpr std::array<std::string_view, 4> kAnswers{"", "stop", "recurse", "continue"};
  const bool is_known = answer > 0 && answer < static_cast<std::int64_t>(kAnswers.size());
  return is_known ? std::string(kAnswers[static_cast<std::size_t>(answer)]) : fmt::format("{}", answer);
}

/// Writes calls line by line, numbered in the order in which they were asked.
class CallLines {
 public:
  explicit CallLines(const NodeName &node_name) : node_name_(node_name) {}

  void add(const std::vector<Call> &calls, const std::string &indent) {
    for (const Call &call : calls) add(call, indent);
  }

  std::string take() { return std::move(text_); }

 private:
  void add(const Call &call, const std::string &indent) {
    text_ += fmt::format("{:>6}  {}{}{}  [{}]\n", ++number_, indent, question_text(call), answer_text(call),
                         time_text(call.duration));
    for (const Callback &callback : call.callbacks) add(callback, indent + "  ");
  }

  void add(const Callback &callback, const std::string &indent) {
    const std::string value = callback.new_value ? " to " + text_of(*callback.new_value) : "";
    text_ += fmt::format("        {}told: {} {}{}\n", indent, path_text(callback.path, node_name_),
                         operation_text(callback.operation), value);
    add(callback.calls, indent + "  ");
    text_ += fmt::format("        {}answered: {}\n", indent, answer_to_change(callback.answer));
  }

  const NodeName &node_name_;
  std::string text_;
  std::size_t number_ = 0;
};

}  // namespace

std::string verdict_text(const std::optional<std::int64_t> &verdict) {
  if (!verdict) return "none: an exception left the call";
  switch (*verdict) {
    case 0:
      return "accepted";
    case -1:
      return "rejected";
    case -3:
      return "accepted with a warning";
    default:
      return fmt::format("{}, which is no verdict", *verdict);
  }
}

std::string question_text(const Call &call) {
  std::string arguments = joined(call.arguments);
  if (call.format) {
    if (!arguments.empty()) arguments += ", ";
    arguments += quoted(call.format->text);
    if (!call.format->arguments.empty()) arguments += ", " + joined(call.format->arguments);
  }
  return fmt::format("{}({})", recording::name(call.function), arguments);
}

std::string answer_text(const Call &call) {
  std::string text;
  if (call.result) text += fmt::format(" = {}", *call.result);
  if (call.error) text += fmt::format(" (confd_errno {})", *call.error);
  if (!call.outputs.empty()) text += ": " + joined(call.outputs);
  return text;
}

std::string path_text(const recording::KeyPath &path, const NodeName &node_name) {
  std::string text;
  for (auto element = path.rbegin(); element != path.rend(); ++element) {
    const bool is_name = element->size() == 1 && element->front().type == recording::kXmlTag;
    if (is_name) {
      const auto tag = static_cast<std::uint32_t>(element->front().bits);
      const std::string name = node_name(tag);
      text += '/' + (name.empty() ? fmt::format("{}", tag) : name);
      continue;
    }
    std::string keys;
    for (const AgentValue &key : *element) keys += (keys.empty() ? "" : " ") + text_of(key);
    text += '{' + keys + '}';
  }
  return text.empty() ? "/" : text;
}

std::string recording_text(const recording::Recording &recording, const NodeName &node_name) {
  const recording::Header &header = recording.header;
  std::string text = fmt::format("point     {}\npath      {}\nvalue     {}\ntime      {}\nlibrary   {}\nrecorder  {}\n",
                                 quoted(header.point), path_text(header.path, node_name),
                                 header.value ? text_of(*header.value) : "none", date_text(header.time),
                                 report::printable(header.library), report::printable(header.recorder));
  for (const Call &limit : header.limits)
    text += fmt::format("known     {}{}\n", question_text(limit), answer_text(limit));
  if (header.last_extension) {
    text +=
        fmt::format("known     time last extended {}\n", date_text(static_cast<std::uint64_t>(*header.last_extension)));
  }
  CallLines lines(node_name);
  lines.add(recording.calls, "");
  text += "calls\n" + lines.take();
  text += fmt::format("verdict   {} in {}\n", verdict_text(recording.trailer.verdict),
                      time_text(recording.trailer.duration));
  if (recording.trailer.message) text += fmt::format("message   {}\n", quoted(*recording.trailer.message));
  return text;
}

}  // namespace transcript
