#include "vlan_map/free_vlans.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace vlan_map {
namespace {

constexpr std::size_t kMostSpans = 12;

std::uint32_t width_of(const VlanRange &span) { return span.last - span.first + 1; }

std::string span_text(const VlanRange &span) {
  return span.first == span.last ? fmt::to_string(span.first) : fmt::format("{}-{}", span.first, span.last);
}

std::vector<VlanRange> widest(std::vector<VlanRange> spans) {
  if (spans.size() <= kMostSpans) return spans;
  std::stable_sort(spans.begin(), spans.end(), [](const auto &a, const auto &b) { return width_of(a) > width_of(b); });
  spans.resize(kMostSpans);
  std::sort(spans.begin(), spans.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
  return spans;
}

}  // namespace

std::vector<VlanRange> free_vlans(const Port &port) {
  std::vector<VlanRange> taken;
  for (const Claim &claim : port.claims) {
    if (claim.status != ChangeStatus::removed) taken.push_back(claim.vlans);
  }
  std::sort(taken.begin(), taken.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
  std::vector<VlanRange> free;
  std::uint32_t next = 1;
  for (const VlanRange &vlans : taken) {
    if (vlans.first > next) free.push_back({next, vlans.first - 1});
    next = std::max(next, vlans.last + 1);
  }
  if (next <= kLastVlan) free.push_back({next, kLastVlan});
  return free;
}

std::string free_text(const Port &port) {
  const std::vector<VlanRange> spans = free_vlans(port);
  if (spans.empty()) return "none";
  std::vector<std::string> texts;
  for (const VlanRange &span : widest(spans)) texts.push_back(span_text(span));
  const std::size_t left = spans.size() - texts.size();
  const std::string rest = left == 0 ? "" : fmt::format(" and {} narrower span{}", left, left == 1 ? "" : "s");
  return fmt::format("{}{}", fmt::join(texts, ", "), rest);
}

}  // namespace vlan_map
