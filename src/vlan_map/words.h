#ifndef VLAN_MAP_WORDS_H
#define VLAN_MAP_WORDS_H

#include <string>
#include <string_view>

#include "vlan_map/map.h"

namespace vlan_map {

/// "vpws", "vpls", "member", "uplink", "snooping": class of a claim in the style sheets.
std::string_view class_of(Application application);

/// "unchanged", "added", "changed", "removed".
std::string_view class_of(Standing standing);

/// The letter that stands for an application on its claims.
char letter_of(Application application);

/// The sign of what the commit does: '+', '~', '-'; 0 for what it leaves alone.
char sign_of(Standing standing);

/// "VLAN 5", "VLANs 5-9", "untagged" or "whole port".
std::string text_of(const VlanRange &vlans);

/// The claim's holder in two parts: "vpws-group branches" and "vpn south"; "VLAN manager" and "vlan 100"; "LDP uplink"
/// and the interface; "igmp-snooping" and the instance.
std::string group_text(const Claim &claim);
std::string vpn_text(const Claim &claim);

/// "unchanged", "added", "changed, was VLAN 5", "removed".
std::string commit_text(const Claim &claim);

/// "rejection 1", "warning 2": number of a conflict, from 1, as the picture shows it.
std::string conflict_text(const Map &map, std::size_t conflict);

/// The sign of a conflict with its number, "!!1" for a rejection, "!2" for a warning.
std::string conflict_sign(const Map &map, std::size_t conflict);

/// What is wrong with a claim or a port, "rejection 1: MESSAGE; warning 2: MESSAGE"; empty where nothing is.
std::string conflicts_text(const Map &map, const std::vector<std::size_t> &conflicts);

/// Everything about a claim in one sentence.
std::string sentence_of(const Map &map, const Port &port, const Claim &claim);

/// What the claim's mark begins with: the sign of its first conflict, that of the commit, its letter.
std::string signs_of(const Map &map, const Claim &claim);

/// The same of the place that a changed claim had before, where it is in no conflict.
std::string former_signs_of(const Claim &claim);

/// What the commit comes to, "The commit is rejected: 2 rejections, 1 warning."
std::string verdict_text(const Map &map);

/// "4 ports, 12 claims: 3 added, 1 changed, 0 removed".
std::string count_text(const Map &map);

}  // namespace vlan_map

#endif
