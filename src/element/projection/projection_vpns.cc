#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr Enumeration kUntagged{1};

}  // namespace

void append_pseudowires(Node &table, PseudowireRole role, const Vpn &vpn, const Nodes &neighbors) {
  for (const Node &neighbor : neighbors) {
    append_entry(table, {static_cast<std::uint32_t>(role), vpn.id, neighbor.keys.front()});
  }
}

void derive_encapsulation(Node &parent, const Node &encapsulation, std::string_view untagged_leaf,
                          std::string_view range_list) {
  if (find_below(&encapsulation, {"untagged"}) != nullptr) set_named(parent, untagged_leaf, kUntagged);
  const Nodes &ranges = entries_below(&encapsulation, {"dot1q-range"});
  if (ranges.empty()) return;
  Node &list = child_named(parent, range_list);
  for (const Node &range : ranges) {
    append_entry(list, {number(range.keys.front()).value_or(0), number(range.keys.back()).value_or(0)});
  }
}

}  // namespace element
