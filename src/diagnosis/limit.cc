#include "diagnosis/limit.h"

#include <algorithm>
#include <map>

#include "diagnosis/name_hints.h"
#include "diagnosis/port_use.h"

namespace diagnosis {
namespace {

/// The lists whose entries a limit counts.
bool is_counted(std::string_view rule, std::string_view list) {
  if (rule == "vpn-limit") return list == "vpn";
  if (rule == "pseudowire-limit") return list == "neighbor" || list == "backup-neighbor";
  return list == "access-interface";
}

}  // namespace

Limit::Limit(const SearchContext &context, std::uint32_t message)
    : context_(context),
      rule_(context.messages[message].rule->id),
      text_(context.messages[message].verdict.text),
      numbers_(rules::parse_limit_message(text_)) {}

std::size_t Limit::allowed() const {
  return is_known() ? static_cast<std::size_t>(std::max<std::int64_t>(numbers_->allowed, 0)) : 0;
}

std::size_t Limit::weight(std::uint32_t entry) const {
  const MergedNode &node = context_.entries.node(entry);
  if (node.after == nullptr || !is_counted(rule_, node.schema->name)) return 0;
  if (!rule_.starts_with("encapsulation")) return 1;
  const std::optional<PortUse> use = port_use(context_.entries, entry);
  if (rule_ == "encapsulation-interface-range-limit" && !holds_name(text_, use->port)) return 0;
  return rule_ == "encapsulation-vlan-limit" ? use->counted_vlans : use->counted_ranges;
}

std::vector<std::vector<Share>> Limit::exceeding_groups(const NumberSet &set) const {
  std::vector<std::vector<Share>> exceeding;
  if (!is_known()) return exceeding;
  std::map<std::uint32_t, std::vector<Share>> groups;
  for (const std::uint32_t entry : set) {
    const std::size_t own = weight(entry);
    const std::uint32_t group = rule_ == "access-interface-limit" ? context_.entries[entry].parent : 0;
    if (own != 0) groups[group].push_back({entry, own});
  }
  for (auto &[name, group] : groups) {
    if (sum_of(group) > allowed()) exceeding.push_back(std::move(group));
  }
  return exceeding;
}

bool is_touched(const SearchContext &context, std::uint32_t entry) {
  return context.status_of(entry) != ChangeStatus::unchanged;
}

bool holds_touched(const SearchContext &context, std::uint32_t entry) {
  for (std::uint32_t inner = entry; inner < context.entries[entry].end; ++inner) {
    if (is_touched(context, inner)) return true;
  }
  return false;
}

std::size_t sum_of(const std::vector<Share> &shares) {
  std::size_t sum = 0;
  for (const Share &share : shares) sum += share.weight;
  return sum;
}

NumberSet entries_of(const std::vector<Share> &shares) {
  NumberSet entries;
  for (const Share &share : shares) entries.push_back(share.entry);
  return entries;
}

}  // namespace diagnosis
