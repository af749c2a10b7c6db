#ifndef VLAN_MAP_LABELS_H
#define VLAN_MAP_LABELS_H

#include <string>
#include <string_view>

#include "vlan_map/map.h"

namespace vlan_map {

/// "vpws", "vpls", "member", "uplink", "snooping": the class of a claim in the style sheets.
std::string_view class_of(Claimant claimant);

/// "unchanged", "added", "changed", "removed".
std::string_view class_of(ChangeStatus status);

/// The letter of a claimant on its bars.
char letter_of(Claimant claimant);

/// The sign of what the commit does to a claim: '+', '~' or '-'; 0 for an unchanged one.
char sign_of(ChangeStatus status);

/// "VLAN 5", "VLANs 5-9", "untagged" or "whole port".
std::string text_of(const VlanRange &vlans);

/// "5", "5-9", "untagged" or "whole port".
std::string short_text_of(const VlanRange &vlans);

/// The two parts of a claimant's name: "vpws-group branches" and "vpn south"; "VLAN manager" and "vlan 100";
/// "LDP uplink" and the interface; "igmp-snooping" and the instance.
std::string group_text(const Claim &claim);
std::string vpn_text(const Claim &claim);

/// "unchanged", "added", "changed, was VLAN 5", "removed".
std::string commit_text(const Claim &claim);

/// "rejection 1" or "warning 2": a conflict by its number, which counts from 1.
std::string conflict_text(const Map &map, std::size_t conflict);

/// A conflict on a badge: "!!1" for a rejection, "!2" for a warning.
std::string conflict_sign(const Map &map, std::size_t conflict);

/// The conflicts of a claim or a port: "rejection 1: MESSAGE; warning 2: MESSAGE"; empty without conflicts.
std::string conflicts_text(const Map &map, const std::vector<std::size_t> &conflicts);

/// Everything about a claim in one sentence.
std::string sentence_of(const Map &map, const Port &port, const Claim &claim);

/// The first part of the label on a claim's bar: its first conflict, the sign of the change, the claimant's letter.
std::string badge_of(const Map &map, const Claim &claim);

/// The badge of the bar for the VLANs that a changed claim had before; no conflict is about them.
std::string previous_badge(const Claim &claim);

/// The verdict in a sentence: "The commit is rejected: 2 rejections, 1 warning."
std::string verdict_text(const Map &map);

/// "12 claims: 3 added, 1 changed, 0 removed".
std::string count_text(const Port &port);

/// "4 ports, 12 claims: 3 added, 1 changed, 0 removed".
std::string count_text(const Map &map);

}  // namespace vlan_map

#endif
