#include "bench/peer/entries.h"

#include <fmt/format.h>

#include <iterator>
#include <stdexcept>

#include "element/datastore/path.h"

namespace bench {
namespace {

using element::Node;
using element::Tree;

const element::Nodes &entries_at(const Tree &derived, const char *path) {
  static const element::Nodes none;
  const Node *list = derived.find(path);
  return list == nullptr ? none : list->children;
}

std::uint32_t number_of(const element::Value &value) { return std::get<std::uint32_t>(value); }

std::uint32_t leaf_of(const Node &entry, std::string_view name) {
  const element::SchemaNode *leaf = entry.schema->child(name);
  const Node *node = leaf == nullptr ? nullptr : entry.find(*leaf);
  if (node == nullptr) throw std::logic_error(fmt::format("an entry has no {}", name));
  return number_of(node->value);
}

std::string vpn_of(const char *family, const element::Value &group, const element::Value &vpn) {
  return fmt::format("{} {} {}", family, to_text(group), to_text(vpn));
}

template <typename Entry, typename Write>
std::string container_text(std::string_view container, const std::vector<Entry> &entries, Write write) {
  std::string text = fmt::format("<{} xmlns=\"urn:bench:peer-rules\">", container);
  for (const Entry &entry : entries) write(std::back_inserter(text), entry);
  return text + fmt::format("</{}>", container);
}

}  // namespace

std::vector<AttachmentEntry> attachments(const Tree &derived) {
  std::vector<AttachmentEntry> result;
  const Node *bridge_domains = derived.find("/internal/int-sub-vpls-vpn-bd");
  for (const Node &entry : entries_at(derived, "/internal/int-sub-vpls-vpn-ac")) {
    const Node *bridge_domain = bridge_domains->find_entry({entry.keys[0], entry.keys[1], entry.keys[2]});
    const std::uint32_t vlan = leaf_of(*bridge_domain, "int-vpls-bd-vlan");
    result.push_back({vpn_of("vpls", entry.keys[0], entry.keys[1]), to_text(entry.keys[3]), vlan, vlan});
  }
  for (const Node &entry : entries_at(derived, "/internal/int-vpws-intf-app")) {
    const std::uint32_t vlan = number_of(entry.keys[4]);
    result.push_back({vpn_of("vpws", entry.keys[0], entry.keys[1]), to_text(entry.keys[3]), vlan, vlan});
  }
  return result;
}

std::vector<PseudowireEntry> pseudowires(const Tree &derived) {
  std::vector<PseudowireEntry> result;
  for (const Node &entry : entries_at(derived, "/internal/int-sub-vpls-vpn-nbr")) {
    result.push_back({vpn_of("vpls", entry.keys[0], entry.keys[1]), leaf_of(entry, "role"),
                      std::get<element::Ipv4>(entry.keys[3]).word, leaf_of(entry, "pw-id")});
  }
  for (const Node &entry : entries_at(derived, "/internal/int-vpws-tunnel-idx")) {
    result.push_back({vpn_of("vpws", entry.keys[0], entry.keys[1]), leaf_of(entry, "role"), number_of(entry.keys[2]),
                      number_of(entry.keys[3])});
  }
  return result;
}

std::string xml_text(std::string_view container, const std::vector<AttachmentEntry> &entries) {
  return container_text(container, entries, [](auto out, const AttachmentEntry &entry) {
    fmt::format_to(
        out, "<entry><vpn>{}</vpn><interface>{}</interface><vlan-min>{}</vlan-min><vlan-max>{}</vlan-max></entry>",
        entry.vpn, entry.interface, entry.vlan_min, entry.vlan_max);
  });
}

std::string xml_text(std::string_view container, const std::vector<PseudowireEntry> &entries) {
  return container_text(container, entries, [](auto out, const PseudowireEntry &entry) {
    fmt::format_to(out, "<entry><vpn>{}</vpn><role>{}</role><neighbor>{}</neighbor><pw-id>{}</pw-id></entry>",
                   entry.vpn, entry.role, entry.neighbor, entry.pw_id);
  });
}

}  // namespace bench
