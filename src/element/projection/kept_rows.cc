#include "element/projection/kept_rows.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace element {
namespace {

// To look at every entry in order is quicker than to sort those of at least this share of the VPNs.
constexpr std::size_t kSmallShare = 16;

}  // namespace

void VpnSelection::add(VpnRange range) {
  size_ += range.end - range.first;
  if (!ranges_.empty() && ranges_.back().end == range.first) {
    ranges_.back().end = range.end;
  } else {
    ranges_.push_back(range);
  }
}

void VpnSelection::add(const VpnSelection &other) {
  for (const VpnRange &range : other.ranges_) add(range);
}

void KeptRows::finish(const std::vector<bool> &is_version) {
  if (is_in_order(is_version)) return;
  const Nodes &rows = std::as_const(list_.children);
  order_.resize(rows.size());
  std::iota(order_.begin(), order_.end(), 0U);
  std::stable_sort(order_.begin(), order_.end(),
                   [&rows](std::uint32_t a, std::uint32_t b) { return compare_keys(rows[a].keys, rows[b].keys) < 0; });
  for (std::uint32_t vpn = 0; vpn < ends_.size(); ++vpn) vpn_of_row_.resize(ends_[vpn], vpn);
}

// All entries of a VPN, in either version, come behind all of the VPNs before it.
bool KeptRows::is_in_order(const std::vector<bool> &is_version) const {
  const std::vector<Value> *last_before = nullptr;
  const std::vector<Value> *last = nullptr;
  const auto is_behind = [](const std::vector<Value> &keys, const std::vector<Value> *others) {
    return others == nullptr || compare_keys(*others, keys) <= 0;
  };
  for (std::uint32_t vpn = 0; vpn < ends_.size(); ++vpn) {
    if (!is_version[vpn]) last_before = last;
    const std::vector<Value> *own_last = last_before;
    for (std::uint32_t row = begin_of(vpn); row < ends_[vpn]; ++row) {
      const std::vector<Value> &keys = list_.children[row].keys;
      if (!is_behind(keys, own_last)) return false;
      own_last = &keys;
    }
    if (own_last != nullptr && is_behind(*own_last, last)) last = own_last;
  }
  return true;
}

bool KeptRows::append(const VpnSelection &selection, Nodes &entries) const {
  const bool is_ordered = order_.empty();
  if (!is_ordered && selection.size() > ends_.size() / kSmallShare) {
    append_in_order(selection, entries);
    return true;
  }
  for (const VpnRange &range : selection.ranges()) {
    entries.append_shared(list_.children, begin_of(range.first), ends_[range.end - 1]);
  }
  return is_ordered;
}

void KeptRows::append_in_order(const VpnSelection &selection, Nodes &entries) const {
  std::vector<bool> is_selected(ends_.size(), false);
  for (const VpnRange &range : selection.ranges()) {
    std::fill(is_selected.begin() + range.first, is_selected.begin() + range.end, true);
  }
  for (const std::uint32_t row : order_) {
    if (is_selected[vpn_of_row_[row]]) entries.push_back_shared(list_.children, row);
  }
}

}  // namespace element
