#ifndef CONFIG_VALIDATE_COMN_DAEMON_MODEL_TAGS_H
#define CONFIG_VALIDATE_COMN_DAEMON_MODEL_TAGS_H

#include <cstdint>

/// Tags of the data model's nodes that the plug-in compares or passes, as the model's namespace header has them.
namespace model_tag {

constexpr std::uint32_t dot1q = 0x7307a7db;
constexpr std::uint32_t bridge_domain = 0x7397e13c;
constexpr std::uint32_t access_interface = 0x1342932d;
constexpr std::uint32_t pw_id = 0x1b61cee1;

}  // namespace model_tag

#endif
