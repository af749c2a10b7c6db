#include "element/input/xml_envelope.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

constexpr std::string_view kMessages = "an rpc-reply with data, or a data or config element";
constexpr std::string_view kReplyToGet = "a reply to get-config";

bool is_netconf(const XmlElement &element, std::string_view name) {
  return element.name() == name && element.name_space() == kNetconfNamespace;
}

/// What holds a configuration. Files are also written by hand, without a namespace around it.
bool is_content(const XmlElement &element) {
  const std::string_view name_space = element.name_space();
  const bool is_base = name_space.empty() || name_space == kNetconfNamespace;
  if (element.name() == "config") return is_base;
  return element.name() == "data" && (is_base || name_space == kNmdaNamespace || name_space == kRestconfNamespace);
}

bool is_edit(const XmlElement &element) {
  return is_netconf(element, "edit-config") ||
         (element.name() == "yang-patch" && element.name_space() == kYangPatchNamespace) ||
         (element.name() == "edit-data" && element.name_space() == kNmdaNamespace);
}

}  // namespace

bool XmlEnvelope::takes(const XmlElement &element) {
  if (open_.empty()) require_alone(element);
  const std::optional<Kind> kind = kind_of(element);
  if (kind) open_.push_back({*kind, std::string(element.name()), element.line()});
  return kind.has_value();
}

std::optional<XmlEnvelope::Kind> XmlEnvelope::kind_of(const XmlElement &element) const {
  if (open_.empty()) return outermost(element);
  switch (open_.back().kind) {
    case Kind::content:
      return std::nullopt;
    case Kind::reply:
      return part_of_reply(element);
    case Kind::request:
      if (is_edit(element)) refuse(element.line(), std::string(kEditGiven), kInsteadOfEdit);
      refuse(element.line(), fmt::format("request {}", one_line(element.name())), kMessages);
    case Kind::error:
      if (is_netconf(element, "error-message")) return Kind::error_message;
      return is_netconf(element, "error-tag") ? Kind::error_tag : Kind::error_part;
    case Kind::error_message:
    case Kind::error_tag:
    case Kind::error_part:
      return Kind::error_part;
  }
  return std::nullopt;
}

std::optional<XmlEnvelope::Kind> XmlEnvelope::outermost(const XmlElement &element) const {
  if (is_content(element)) return Kind::content;
  if (is_edit(element)) refuse(element.line(), std::string(kEditGiven), kInsteadOfEdit);
  if (element.name_space() != kNetconfNamespace) return std::nullopt;
  if (element.name() == "rpc-reply") return Kind::reply;
  if (element.name() == "rpc") return Kind::request;
  refuse(element.line(), fmt::format("element {} of NETCONF", one_line(element.name())), kMessages);
}

XmlEnvelope::Kind XmlEnvelope::part_of_reply(const XmlElement &element) const {
  if (is_netconf(element, "rpc-error")) return Kind::error;
  if (element.name() == "data" && is_content(element)) return Kind::content;
  refuse(element.line(), fmt::format("rpc-reply with {} in place of data", one_line(element.name())), kReplyToGet);
}

void XmlEnvelope::require_alone(const XmlElement &element) {
  const bool is_envelope = outermost(element).has_value();
  if (has_begun_ && (is_envelope || !outermost_.empty())) {
    refuse(element.line(),
           fmt::format("element {} is not the only one of the file",
                       one_line(outermost_.empty() ? element.name() : std::string_view(outermost_))),
           "it around all others");
  }
  has_begun_ = true;
  if (is_envelope) outermost_ = element.name();
}

void XmlEnvelope::text(std::string_view part) {
  const Open &open = open_.back();
  if (open.kind == Kind::error_message) {
    message_ += part;
  } else if (open.kind == Kind::error_tag) {
    tag_ += part;
  } else if (open.kind != Kind::error_part && !trimmed(part).empty()) {
    refuse(open.line, fmt::format("text in element {}", one_line(open.name)), "elements only");
  }
}

void XmlEnvelope::end() {
  const Open closed = std::move(open_.back());
  open_.pop_back();
  if (closed.kind == Kind::content) has_data_ = true;
  if (closed.kind == Kind::request) refuse(closed.line, "rpc without an operation", kMessages);
  if (closed.kind == Kind::reply) require_data(closed.line);
  if (closed.kind != Kind::error) return;
  errors_.push_back(message_.empty() ? std::exchange(tag_, "") : std::exchange(message_, ""));
  tag_.clear();
}

void XmlEnvelope::require_data(std::size_t line) const {
  if (errors_.empty() && has_data_) return;
  if (errors_.empty()) refuse(line, "rpc-reply without data", kReplyToGet);
  std::vector<std::string> texts;
  for (const std::string &error : errors_) texts.push_back(fmt::format("\"{}\"", one_line(trimmed(error))));
  refuse(line, fmt::format("rpc-reply with an error: {}", fmt::join(texts, ", ")), kReplyToGet);
}

void XmlEnvelope::refuse(std::size_t line, const std::string &fault, std::string_view expected) const {
  throw input_fault({origin_, line}, fault, expected);
}

}  // namespace element
