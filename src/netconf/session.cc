#include "netconf/session.h"

#include <fmt/format.h>

#include <algorithm>

#include "element/edit/xml_node.h"
#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"
#include "netconf/reply_reader.h"

namespace netconf {
namespace {

constexpr std::string_view kBase10 = "urn:ietf:params:netconf:base:1.0";
constexpr std::string_view kBase11 = "urn:ietf:params:netconf:base:1.1";
constexpr std::string_view kCandidate = "urn:ietf:params:netconf:capability:candidate:1.0";

/// A server names each of its modules in its hello; more than this is none.
constexpr std::size_t kLongestHello = std::size_t{1} << 24;

std::string own_hello() {
  return fmt::format(
      R"(<?xml version="1.0" encoding="UTF-8"?><hello xmlns="{}"><capabilities><capability>{}</capability>)"
      R"(<capability>{}</capability></capabilities></hello>)",
      element::kNetconfNamespace, kBase10, kBase11);
}

[[noreturn]] void refuse_hello(std::string_view what) {
  throw SessionError(fmt::format("{} in place of a hello; expected the capabilities of NETCONF", what));
}

std::vector<element::XmlNode> parse_hello(const std::string &text) {
  try {
    element::InputPieces pieces(text, "hello");
    return element::read_xml_nodes(pieces);
  } catch (const element::InputError &error) {
    throw SessionError(error.what());
  }
}

}  // namespace

Session::Session(Transport &transport) : transport_(transport), reader_(transport) {
  transport_.write(framed(own_hello(), Framing::end_of_message));
  take_hello(read_hello());
  const auto can = [this](std::string_view name) {
    return std::find(capabilities_.begin(), capabilities_.end(), name) != capabilities_.end();
  };
  if (!can(kBase10) && !can(kBase11)) {
    throw SessionError(fmt::format("hello without a base version; expected {} or {}", kBase10, kBase11));
  }
  if (!can(kBase11)) return;
  framing_ = Framing::chunks;
  reader_.set_framing(framing_);
}

/// What is no XML is told at once: behind the text of a shell, no end of a message would ever come.
std::string Session::read_hello() {
  std::string text;
  std::string piece(4096, '\0');
  while (const std::size_t count = reader_.read(piece.data(), piece.size())) {
    text.append(piece, 0, count);
    const std::string_view content = element::trimmed(text);
    if (!content.empty() && content.front() != '<') refuse_hello(fmt::format("\"{}\"", element::one_line(content)));
    if (text.size() > kLongestHello) refuse_hello(fmt::format("more than {} bytes", kLongestHello));
  }
  return text;
}

void Session::take_hello(const std::string &text) {
  const std::vector<element::XmlNode> outermost = parse_hello(text);
  if (outermost.size() != 1 || outermost[0].name != "hello" || outermost[0].name_space != element::kNetconfNamespace) {
    refuse_hello(outermost.empty() ? "nothing" : fmt::format("element {}", element::one_line(outermost[0].name)));
  }
  const element::XmlNode *capabilities = outermost[0].child("capabilities");
  if (capabilities == nullptr) refuse_hello("hello without capabilities");
  for (const element::XmlNode &capability : capabilities->children) {
    capabilities_.emplace_back(element::trimmed(capability.text));
  }
}

bool Session::has_candidate() const {
  return std::find(capabilities_.begin(), capabilities_.end(), kCandidate) != capabilities_.end();
}

std::string Session::send(std::string_view operation) {
  std::string id = std::to_string(++last_message_id_);
  const std::string request =
      fmt::format(R"(<?xml version="1.0" encoding="UTF-8"?><rpc message-id="{}" xmlns="{}">{}</rpc>)", id,
                  element::kNetconfNamespace, operation);
  transport_.write(framed(request, framing_));
  return id;
}

void Session::get_config(std::string_view datastore, const Sink &sink) {
  const std::string id = send(fmt::format("<get-config><source><{}/></source></get-config>", datastore));
  read_reply(reader_, id, Content::data, sink);
}

void Session::close() {
  read_reply(reader_, send("<close-session/>"), Content::ok, [](std::string_view) {});
}

}  // namespace netconf
