#include "vlan_map/bars.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/escape/markup.h"
#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

using report::to_markup;

constexpr double kBaseline = 11.5;

std::string label_of(std::string_view badge, const Claim &claim, const VlanRange &vlans) {
  const bool is_vpn = !claim.group.empty();
  const std::string holder = is_vpn ? claim.group + " " + claim.vpn : vpn_text(claim);
  return fmt::format("{} {} {}", badge, holder, text_of(vlans));
}

std::string box_markup(std::string_view label) {
  return fmt::format(R"(<rect class="bar" width="100%" height="100%"/><text x="{}" y="{}">{}</text></svg>)",
                     kBarPadding, kBaseline, label);
}

}  // namespace

std::string classes_of(const Map &map, const Claim &claim, bool is_previous) {
  std::string classes = fmt::format("mark {} {}", class_of(claim.claimant),
                                    is_previous ? std::string_view("former") : class_of(claim.status));
  if (is_previous || claim.conflicts.empty()) return classes;
  const bool is_rejected = std::any_of(claim.conflicts.begin(), claim.conflicts.end(),
                                       [&map](std::size_t index) { return !map.conflicts[index].is_warning; });
  return classes + (is_rejected ? " rejected" : " warned");
}

std::string bar_markup(const Map &map, const Port &port, const Bar &bar, std::string_view attributes,
                       std::string_view title) {
  const Claim &claim = port.claims[bar.claim];
  const double y = kRowPadding + static_cast<double>(bar.lane) * kLanePitch;
  std::string markup =
      fmt::format(R"(<svg class="{}" x="{:.2f}" y="{}" width="{:.2f}" height="{}" role="img"{}>)",
                  classes_of(map, claim, bar.is_previous), bar.x, y, bar.width, kBarHeight, attributes);
  if (!title.empty()) markup += fmt::format("<title>{}</title>", title);
  return markup + box_markup(to_markup(label_of(bar.badge, claim, bar.vlans)));
}

std::string bar_sentence(const Map &map, const Port &port, const Bar &bar) {
  const Claim &claim = port.claims[bar.claim];
  const std::string sentence = sentence_of(map, port, claim);
  return bar.is_previous ? "Before this commit, " + text_of(bar.vlans) + " - " + sentence : sentence;
}

std::string overlaps_markup(const Map &map, std::size_t port, double height) {
  constexpr double least_width = 6;
  std::string markup;
  for (const std::size_t index : map.ports[port].conflicts) {
    for (const Overlap &overlap : map.conflicts[index].overlaps) {
      if (overlap.port != port) continue;
      const double x = left_of(overlap.vlans.first);
      markup += fmt::format(
          R"(<rect class="meeting {}" x="{:.2f}" y="0" width="{:.2f}" height="{}" data-first="{}" data-last="{}"/>)",
          map.conflicts[index].is_warning ? "warned" : "rejected", x,
          std::max(right_of(overlap.vlans.last) - x, least_width), height, overlap.vlans.first, overlap.vlans.last);
    }
  }
  return markup;
}

std::string scale_markup() {
  const auto label = [](double x, const std::string &words) {
    return fmt::format(R"(<text class="tick" x="{:.2f}" y="12">{}</text>)", x, words);
  };
  std::string markup = label(kUntaggedWidth / 2, "untagged");
  for (const std::uint32_t vlan : scale_ticks()) markup += label(left_of(vlan), fmt::to_string(vlan));
  return markup;
}

std::string definitions_markup() {
  return "<defs><pattern id=\"hatching\" width=\"5\" height=\"5\" patternUnits=\"userSpaceOnUse\" "
         "patternTransform=\"rotate(45)\"><rect class=\"stripe\" width=\"1.2\" height=\"5\"/></pattern></defs>";
}

const std::vector<LegendEntry> &legend() {
  static const std::vector<LegendEntry> entries{
      {"vpws unchanged", "W", "VPWS"},
      {"vpls unchanged", "L", "VPLS"},
      {"member unchanged", "M", "VLAN-manager member"},
      {"uplink unchanged", "U", "LDP uplink"},
      {"snooping unchanged", "S", "IGMP snooping"},
      {"vpws added", "+W", "added by this commit"},
      {"vpws changed", "~W", "changed: its new place"},
      {"vpws former", "~W", "its place before"},
      {"vpws removed", "-W", "removed"},
      {"vpws unchanged rejected", "!!1W", "in a conflict that rejects the commit"},
      {"vpws unchanged warned", "!2W", "in a warning"},
  };
  return entries;
}

std::string sample_markup(const LegendEntry &entry, std::string_view attributes) {
  return fmt::format(R"(<svg class="mark {}" width="{:.2f}" height="{}" aria-hidden="true"{}>)", entry.classes,
                     bar_width(entry.badge), kBarHeight, attributes) +
         box_markup(entry.badge);
}

}  // namespace vlan_map
