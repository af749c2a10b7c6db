#ifndef VLAN_MAP_BARS_H
#define VLAN_MAP_BARS_H

#include <string>
#include <string_view>
#include <vector>

#include "vlan_map/layout.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The classes of a claim in the style sheet: claimant, change or "former", and "rejected" or "warned" for one in a
/// conflict.
std::string classes_of(const Map &map, const Claim &claim, bool is_previous);

/// A claim as a group with a title, which a screen reader speaks and a browser shows.
std::string bar_markup(const Map &map, const Port &port, const Bar &bar);

/// The claim in a sentence, with file and line.
std::string bar_sentence(const Map &map, const Port &port, const Bar &bar);

/// The VLANs of a port that the claims of a conflict share, as areas behind the claims; `height` is that of the row.
std::string overlaps_markup(const Map &map, std::size_t port, double height);

/// The free VLANs of a port as a line at the foot of its row.
std::string free_markup(const Port &port, double height);

/// The scale's ticks with their VLANs.
std::string scale_markup();

/// Definitions that the style sheet refers to: the hatching of removed claims.
std::string definitions_markup();

struct LegendEntry {
  std::string classes;
  std::string badge;
  std::string meaning;
  Shape shape = Shape::bar;
};

const std::vector<LegendEntry> &legend();

double sample_width(const LegendEntry &entry);

/// The shape of the legend's entry at a place.
std::string sample_markup(const LegendEntry &entry, double x, double y);

}  // namespace vlan_map

#endif
