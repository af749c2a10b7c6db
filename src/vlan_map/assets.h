#ifndef VLAN_MAP_ASSETS_H
#define VLAN_MAP_ASSETS_H

#include <string_view>

namespace vlan_map {

/// A file of assets/ as it goes into a picture.
struct Asset {
  std::string_view text;
  std::string_view sha256;  ///< of the text, in base64, as a content security policy names it
};

extern const Asset map_style;   ///< marks and rows, in both formats
extern const Asset page_style;  ///< what the page has around them
extern const Asset page_script;

}  // namespace vlan_map

#endif
