#ifndef VLAN_MAP_MARKS_H
#define VLAN_MAP_MARKS_H

#include <string>
#include <string_view>
#include <vector>

#include "vlan_map/layout.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The classes by which the style sheet draws the mark: application, standing or "former", and "rejected" or "warned".
std::string classes_of(const Map &map, const Claim &claim, bool is_former);

/// A mark as a nested picture, which clips its label; `attributes` go into its start tag, `title` into its title
/// unless it is empty. Both are markup already.
std::string mark_markup(const Map &map, const Port &port, const Mark &mark, std::string_view attributes,
                        std::string_view title);

/// What the mark is, for who does not see it.
std::string mark_sentence(const Map &map, const Port &port, const Mark &mark);

/// The places of a row where conflicts are, behind its marks.
std::string meetings_markup(const Map &map, std::size_t port, double height);

/// The scale's ticks with their VLANs.
std::string scale_markup();

/// What the style sheet's marks need: the hatching of what is removed.
std::string definitions_markup();

struct LegendEntry {
  std::string classes;
  std::string signs;
  std::string meaning;
};

const std::vector<LegendEntry> &legend();

/// A mark of the legend; `attributes` as above.
std::string sample_markup(const LegendEntry &entry, std::string_view attributes);

}  // namespace vlan_map

#endif
