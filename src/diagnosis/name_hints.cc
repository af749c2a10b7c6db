#include "diagnosis/name_hints.h"

#include <cctype>
#include <string>
#include <string_view>

#include "diagnosis/port_use.h"

namespace diagnosis {
namespace {

struct Match {
  bool has_port = false;
  bool port = false;  ///< the text holds it
  bool vpn = false;
  bool pseudowire = false;
};

class Matcher {
 public:
  Matcher(const Entries &entries, const Message &message) : entries_(entries), text_(message.verdict.text) {}

  Match match(std::uint32_t entry) const {
    Match match;
    const std::optional<PortUse> use = port_use(entries_, entry);
    match.has_port = use.has_value();
    match.port = use && holds_name(text_, use->port);
    match.vpn = holds_vpn(entry);
    const auto holds_wire = [this](const std::optional<std::string> &wire) {
      return wire && holds_name(text_, std::string_view(*wire).substr(wire->find(' ') + 1));
    };
    match.pseudowire = holds_wire(pseudowire(entries_, entry)) || holds_wire(former_pseudowire(entries_, entry));
    return match;
  }

 private:
  bool holds_vpn(std::uint32_t entry) const {
    std::uint32_t outer = entry;
    while (outer != kNone && entries_.node(outer).schema->name != "vpn") outer = entries_[outer].parent;
    if (outer == kNone) return false;
    const auto is_named = [this](std::uint32_t one) {
      return holds_name(text_, element::to_text(entries_.node(one).node().keys.front()));
    };
    return is_named(outer) && is_named(entries_[outer].parent);
  }

  const Entries &entries_;
  std::string_view text_;
};

}  // namespace

bool holds_name(std::string_view text, std::string_view name) {
  const auto is_inside_name = [&text](std::size_t at) {
    return at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
  };
  for (std::size_t at = text.find(name); at != std::string_view::npos; at = text.find(name, at + 1)) {
    const bool is_cut = (at > 0 && is_inside_name(at - 1)) || is_inside_name(at + name.size());
    if (!is_cut) return true;
  }
  return false;
}

std::vector<NumberSet> guess_parties(const Entries &entries, const NumberSet &set, const Message &message) {
  const Matcher matcher(entries, message);
  std::vector<NumberSet> guesses(3);
  for (const std::uint32_t entry : set) {
    const Match match = matcher.match(entry);
    const bool is_in_vpn = entries[entry].parent != kNone && match.has_port;
    const bool is_exact = match.port && (match.vpn || !is_in_vpn);
    if (match.pseudowire || is_exact) guesses[0].push_back(entry);
    if (match.port || match.pseudowire) guesses[1].push_back(entry);
    if (match.vpn) guesses[2].push_back(entry);
  }
  std::erase_if(guesses, [](const NumberSet &guess) { return guess.empty(); });
  return guesses;
}

}  // namespace diagnosis
