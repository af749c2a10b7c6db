#ifndef VLAN_MAP_MARKS_H
#define VLAN_MAP_MARKS_H

#include <string>
#include <string_view>
#include <vector>

#include "vlan_map/layout.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The classes of a bar in the style sheet: claimant, change or "former", and "rejected" or "warned" for a claim in a
/// conflict.
std::string classes_of(const Map &map, const Claim &claim, bool is_previous);

/// A bar as a nested picture, which clips its label. `attributes` go into its start tag, `title` into a title element
/// if it is not empty; the caller has escaped both.
std::string bar_markup(const Map &map, const Port &port, const Bar &bar, std::string_view attributes,
                       std::string_view title);

/// The bar in a sentence, for screen readers.
std::string bar_sentence(const Map &map, const Port &port, const Bar &bar);

/// The VLANs of a port that the claims of a conflict share, as areas behind the bars; `height` is that of the row.
std::string overlaps_markup(const Map &map, std::size_t port, double height);

/// The scale's ticks with their VLANs.
std::string scale_markup();

/// Definitions that the style sheet refers to: the hatching of removed claims.
std::string definitions_markup();

struct LegendEntry {
  std::string classes;
  std::string badge;
  std::string meaning;
};

const std::vector<LegendEntry> &legend();

/// A bar of the legend; `attributes` as for bar_markup.
std::string sample_markup(const LegendEntry &entry, std::string_view attributes);

}  // namespace vlan_map

#endif
