#include "vlan_map/bars.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/escape/markup.h"
#include "vlan_map/free_vlans.h"
#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

using report::to_markup;

constexpr double kBaseline = 11.5;
constexpr double kFreeLine = 3;

/// One VLAN is a needle with a round head, few VLANs have a square one: neither looks like a bar at scale.
std::string shape_markup(Shape shape, double x, double width, double y) {
  const double middle = x + width / 2;
  if (shape == Shape::bar) {
    return fmt::format(R"(<rect class="bar" x="{:.2f}" y="{}" width="{:.2f}" height="{}"/>)", x, y, width, kBarHeight);
  }
  const std::string needle = fmt::format(R"(<path class="needle" d="M{:.2f} {}V{}"/>)", middle, y, y + kBarHeight);
  const double head = y + kBarHeight / 2;
  const double radius = kMarkWidth / 2;
  if (shape == Shape::vlan_mark) {
    return needle + fmt::format(R"(<circle class="bar head" cx="{:.2f}" cy="{}" r="{}"/>)", middle, head, radius);
  }
  return needle + fmt::format(R"(<rect class="bar head" x="{:.2f}" y="{}" width="{}" height="{}"/>)", middle - radius,
                              head - radius, kMarkWidth, kMarkWidth);
}

std::string label_markup(double x, double y, std::string_view label) {
  if (label.empty()) return "";
  return fmt::format(R"(<text x="{:.2f}" y="{}">{}</text>)", x, y + kBaseline, label);
}

}  // namespace

std::string classes_of(const Map &map, const Claim &claim, bool is_previous) {
  std::string classes = fmt::format("mark {} {}", class_of(claim.claimant),
                                    is_previous ? std::string_view("former") : class_of(claim.status));
  if (is_previous || claim.conflicts.empty()) return classes;
  const bool is_rejected = std::any_of(claim.conflicts.begin(), claim.conflicts.end(),
                                       [&map](std::size_t index) { return !map.conflicts[index].finding.is_warning; });
  return classes + (is_rejected ? " rejected" : " warned");
}

std::string bar_markup(const Map &map, const Port &port, const Bar &bar) {
  const Claim &claim = port.claims[bar.claim];
  const double y = kRowPadding + static_cast<double>(bar.lane) * kLanePitch;
  const bool is_within = bar.shape == Shape::bar && bar.label_x >= bar.x && bar.label_x < bar.x + bar.width;
  return fmt::format(R"(<g class="{}{}" role="img"><title>{}</title>)", classes_of(map, claim, bar.is_previous),
                     is_within ? " within" : "", to_markup(bar_sentence(map, port, bar))) +
         shape_markup(bar.shape, bar.x, bar.width, y) + label_markup(bar.label_x, y, to_markup(bar.label)) + "</g>";
}

std::string bar_sentence(const Map &map, const Port &port, const Bar &bar) {
  const Claim &claim = port.claims[bar.claim];
  std::string sentence = sentence_of(map, port, claim);
  if (claim.place) sentence += fmt::format(" ({})", report::to_text(*claim.place));
  return bar.is_previous ? "Before this commit, " + text_of(bar.vlans) + " - " + sentence : sentence;
}

std::string overlaps_markup(const Map &map, std::size_t port, double height) {
  constexpr double least_width = 6;
  std::string markup;
  for (const std::size_t index : map.ports[port].conflicts) {
    for (const Overlap &overlap : map.conflicts[index].overlaps) {
      if (overlap.port != port) continue;
      const double x = left_of(overlap.vlans.first);
      const double width = right_of(overlap.vlans.last) - x;
      const double drawn = std::max(width, least_width);
      markup += fmt::format(R"(<rect class="meeting {}" x="{:.2f}" y="0" width="{:.2f}" height="{}"/>)",
                            map.conflicts[index].finding.is_warning ? "warned" : "rejected", x + (width - drawn) / 2,
                            drawn, height);
    }
  }
  return markup;
}

std::string free_markup(const Port &port, double height) {
  std::string lines;
  std::string names;
  for (const VlanRange &span : free_vlans(port)) {
    const double x = left_of(span.first);
    const double width = right_of(span.last) - x;
    lines += fmt::format("M{:.2f} {}h{:.2f}v{}h-{:.2f}z", x, height - kFreeLine - 1, width, kFreeLine, width);
    const std::string name = "free " + short_text_of(span);
    if (text_width(name) + 2 * kBarPadding > width) continue;
    names += fmt::format(R"(<text class="free-name" x="{:.2f}" y="{}">{}</text>)", x + width / 2,
                         height - kFreeLine - 3, name);
  }
  return lines.empty() ? "" : fmt::format(R"(<path class="free" d="{}"/>)", lines) + names;
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
      {"vpws unchanged", "", "one VLAN, too narrow for the scale", Shape::vlan_mark},
      {"vpws unchanged", "", "few VLANs, likewise", Shape::range_mark},
      {"vpws added", "+W", "added by this commit"},
      {"vpws changed", "~W", "changed: its new place"},
      {"vpws former", "~W", "its place before"},
      {"vpws removed", "-W", "removed"},
      {"vpws unchanged rejected", "!!1W", "in a conflict that rejects the commit"},
      {"vpws unchanged warned", "!2W", "in a warning"},
  };
  return entries;
}

double sample_width(const LegendEntry &entry) {
  return entry.shape == Shape::bar ? text_width(entry.badge) + 2 * kBarPadding : kMarkWidth;
}

std::string sample_markup(const LegendEntry &entry, double x, double y) {
  return fmt::format(R"(<g class="mark within {}" aria-hidden="true">)", entry.classes) +
         shape_markup(entry.shape, x, sample_width(entry), y) + label_markup(x + kBarPadding, y, entry.badge) + "</g>";
}

}  // namespace vlan_map
