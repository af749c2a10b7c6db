#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_vlan_members() {
  return {
      {
          .id = "member-on-port-based-vpn",
          .point = "vlm_memb_valp",
          .message = "vlan %d interface %s is already assigned to mpls l2vpn %s %s",
          .source = "config_validate_vpn/vlan_membership.cc",
          .provokes = "A port that a VPN takes whole becomes a static member of a VLAN, whichever.",
          .why = "The VPN takes every frame of the port, so that the VLAN would have a member that never sends it "
                 "anything.",
          .remedy = "Use another port for the VLAN, or give the VPN a VLAN of its own on the port, in the same commit.",
          .examples = {"member-joins-port-based-vpn-port"},
      },
      {
          .id = "member-same-dot1q",
          .point = "vlm_memb_valp",
          .message = "vlan %d interface %s is already assigned to mpls l2vpn %s %s with the same dot1q. It must be "
                     "configured to another dot1q vlan",
          .source = "config_validate_vpn/vlan_membership.cc",
          .provokes =
              "A port on which a VPN has the VLAN, by its dot1q or within a dot1q-range, becomes a static member "
              "of that VLAN.",
          .why =
              "A static member's frames are switched within the VLAN, the VPN's go into a pseudowire: a frame of that "
              "VLAN can go one way only.",
          .remedy = "Make the port a member of another VLAN, or take the VLAN from the VPN in the same commit.",
          .examples = {"member-joins-vlan-of-vpn"},
      },
      {
          .id = "member-on-uplink",
          .point = "vlm_memb_valp",
          .severity = Severity::warning,
          .message = "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces "
                     "will not be able to encapsulate MPLS traffic",
          .source = "config_validate_comn/uplink.h",
          .provokes =
              "A port on which a VPN has a VLAN or an encapsulation becomes a static member of the VLAN of an LDP "
              "uplink. A port that VPNs only take whole draws another message. The text names no port and is said "
              "once.",
          .why =
              "Labelled frames leave by the uplink's ports. A frame that the VPN takes in on such a port would have to "
              "leave by the port on which it came, so it gets no label: the access interface carries nothing towards "
              "the network.",
          .remedy =
              "Use another port for the uplink's VLAN, or move the VPN's access interface first. Confirm the commit "
              "only where that is meant for a while, as in a migration.",
          .examples = {"member-joins-uplink-vlan"},
      },
  };
}

}  // namespace rules
