#include "netconf/reply_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <vector>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"
#include "element/input/xml_reader.h"

namespace netconf {
namespace {

/// Errors beyond these say no more, and an error's text beyond this is cut when it is printed.
constexpr std::size_t kMostErrors = 8;
constexpr std::size_t kLongestText = 4096;

bool is_netconf(const element::XmlElement &element, std::string_view name) {
  return element.name_space() == element::kNetconfNamespace && element.name() == name;
}

/// Watches a reply: its outermost element, the names below it, and the texts of its errors.
class ReplyEvents : public element::XmlEvents {
 public:
  explicit ReplyEvents(std::string_view message_id) : message_id_(message_id) {}

  void start(const element::XmlElement &element) override {
    ++depth_;
    if (depth_ == 1) {
      require_reply(element);
    } else if (depth_ == 2) {
      is_in_error_ = is_netconf(element, "rpc-error");
      has_data_ = has_data_ || is_netconf(element, "data");
      has_ok_ = has_ok_ || is_netconf(element, "ok");
    } else if (depth_ == 3 && is_in_error_) {
      part_ = element.name();
    }
  }

  void text(std::string_view text) override {
    if (depth_ != 3 || !is_in_error_) return;
    std::string &part = error_[part_];
    part += text.substr(0, kLongestText - std::min(part.size(), kLongestText));
  }

  void end() override {
    if (depth_-- != 2 || !is_in_error_) return;
    is_in_error_ = false;
    if (element::trimmed(error_["error-severity"]) != "warning") add_error();
    error_.clear();
  }

  /// At the end of the message.
  void require(Content expected) const {
    if (!errors_.empty()) throw SessionError(fmt::format("refused: {}", fmt::join(errors_, "; ")));
    if (expected == Content::data ? has_data_ : has_ok_) return;
    throw SessionError(fmt::format("rpc-reply without {}", expected == Content::data ? "data" : "ok"));
  }

 private:
  void require_reply(const element::XmlElement &element) const {
    if (!is_netconf(element, "rpc-reply")) {
      throw SessionError(fmt::format("element {}; expected rpc-reply", element::one_line(element.name())));
    }
    for (const element::XmlAttribute &attribute : element.attributes()) {
      if (attribute.name == "message-id" && attribute.value != message_id_) {
        throw SessionError(fmt::format("reply to message \"{}\"; expected one to message \"{}\"",
                                       element::one_line(attribute.value), message_id_));
      }
    }
  }

  void add_error() {
    const auto part = [this](const std::string &name) { return element::one_line(element::trimmed(error_[name])); };
    std::string text = part("error-tag");
    for (const char *name : {"error-app-tag", "error-path"}) {
      if (!part(name).empty()) text += (text.empty() ? "" : ", ") + part(name);
    }
    const std::string message = part("error-message");
    if (errors_.size() == kMostErrors) return;
    errors_.push_back(message.empty() ? text : fmt::format("\"{}\" ({})", message, text));
  }

  std::string_view message_id_;
  std::size_t depth_ = 0;
  bool is_in_error_ = false;
  bool has_data_ = false;
  bool has_ok_ = false;
  std::string part_;                          ///< of the error that is open
  std::map<std::string, std::string> error_;  ///< the texts of its parts
  std::vector<std::string> errors_;
};

}  // namespace

void read_reply(MessageReader &reader, std::string_view message_id, Content expected,
                const std::function<void(std::string_view)> &sink) {
  const auto source = [&](char *buffer, std::size_t size) {
    const std::size_t count = reader.read(buffer, size);
    if (count != 0) sink({buffer, count});
    return count;
  };
  ReplyEvents events(message_id);
  try {
    element::InputPieces pieces(source, "reply");
    if (element::read_xml(pieces, events) != 1)
      throw SessionError("no single element in a message; expected rpc-reply");
  } catch (const element::InputError &error) {
    throw SessionError(error.what());
  }
  events.require(expected);
}

}  // namespace netconf
