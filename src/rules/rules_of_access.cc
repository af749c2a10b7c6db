#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_access() {
  return {
      {
          .id = "access-interface-unknown",
          .point = "vpn_access_valp",
          .message = "%s %s interface is not valid. Verify available interfaces",
          .source = "config_validate_comn/access_interface_checks.cc",
          .provokes =
              "The element has no interface of the name that an access interface has. Every access interface of "
              "every VPN is looked at, also those that the commit leaves alone.",
          .why =
              "There is no port whose frames the VPN could take: a wrong name, or a card or service port that is not "
              "there. Accepted, the service would stand in the configuration and never come up.",
          .remedy =
              "The message tells the group and the VPN, not the interface: compare the names of that VPN's access "
              "interfaces with those that the element has. Off the element these stand in its profile.",
          .examples = {"access-interface-unknown"},
      },
      {
          .id = "access-encapsulation-mixed",
          .point = "vpn_access_valp",
          .message = "%s %s: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'",
          .source = "config_validate_comn/encapsulation_agreement.cc",
          .provokes =
              "Some access interfaces of a VPLS VPN have an encapsulation, untagged or dot1q-range, and some have "
              "none; the first interface by name decides for the others. Whether the bridge domain is a QinQ one "
              "is not asked. Where the bridge domain has a dot1q, an interface that is untagged and has no range "
              "counts as one without: a second of that kind is refused, and one without encapsulation after it "
              "is not.",
          .why = "A bridge domain either bridges frames with the customer's inner tag or without it. Were its ports of "
                 "both kinds, frames would leave some of them with a tag too many or too few.",
          .remedy = "Give all access interfaces of the VPN an encapsulation, with a dot1q-range each where the bridge "
                    "domain has a dot1q, or give none of them any.",
          .examples = {"access-encapsulation-disagrees"},
      },
      {
          .id = "access-igmp-snooping",
          .point = "vpn_access_valp",
          .message = "%s %s interface %s is already assigned to multicast igmp snooping %d",
          .source = "config_validate_vpls/vpls_igmp_snooping.cc",
          .provokes =
              "The commit changes the bridge domain of a VPLS VPN that has an interface of IGMP snooping among its "
              "access interfaces, whatever its VLANs. The number is the snooping instance. Bridge domains that "
              "the commit leaves alone, and VPWS, are not looked at.",
          .why =
              "IGMP snooping takes the port's membership reports to itself and forwards multicast as they say. The VPN "
              "would take the same frames away first: receivers would fall silent, or see traffic that is not theirs.",
          .remedy =
              "Take the interface out of IGMP snooping, in the same commit or before it, or choose another port for "
              "the VPN.",
          .examples = {"access-interface-is-snooping"},
      },
      {
          .id = "access-static-member",
          .point = "vpn_access_valp",
          .message = "%s %s interface %s is already assigned to dot1q vlan %d. It must be configured to another dot1q",
          .source = "config_validate_comn/vlan_manager_overlap.cc",
          .provokes =
              "A changed access interface takes a VLAN of which its port is a static member in the VLAN manager. "
              "In a VPLS VPN, any change of the bridge domain changes all its access interfaces. Of a "
              "dot1q-range, only the lowest VLAN that has a member on any port is looked at: a member on this "
              "port at a higher VLAN passes when a lower one has members on other ports only.",
          .why =
              "A static member's frames are switched within the VLAN, the VPN's go into a pseudowire: a frame of that "
              "VLAN can go one way only, and the other service would lose its traffic.",
          .remedy = "Choose another VLAN for the VPN, or remove the port from the VLAN's static members in the same "
                    "commit.",
          .examples = {"access-vlan-is-static-member", "access-range-meets-static-member"},
      },
      {
          .id = "access-port-based-twice",
          .point = "vpn_access_valp",
          .message = "%s %s & %s %s must not be configured to the same interface %s on port-based VPNs",
          .source = "config_validate_comn/dot1q_conflict.cc",
          .provokes =
              "Two VPNs take the whole of one port: neither has a VLAN or an encapsulation there. The VPN named "
              "first is the one that was compared; VPWS VPNs are taken before VPLS VPNs, so it need not be the "
              "one that the commit changes.",
          .why = "Every frame that enters the port belongs to both: the hardware can send it into one VPN only.",
          .remedy = "Give the port to one of the two, or give both a VLAN or an encapsulation of their own on it.",
          .examples = {"access-two-port-based-vpns"},
      },
      {
          .id = "access-same-dot1q",
          .point = "vpn_access_valp",
          .message = "%s %s and %s %s must not be configured with the same dot1q on interface %s",
          .source = "config_validate_comn/dot1q_conflict.cc",
          .provokes =
              "Two VPNs have a VLAN of one port in common: dot1q against dot1q, dot1q against dot1q-range, or two "
              "ranges that overlap. The VPN named first is the one that was compared; VPWS VPNs are taken before "
              "VPLS VPNs, so it need not be the one that the commit changes.",
          .why =
              "A tagged frame is told apart by port and VLAN alone. With both in two VPNs the hardware cannot say which "
              "pseudowire it belongs to, and one customer's frames would reach the other.",
          .remedy = "Give one of the two another VLAN or a range that does not meet the other's, or another port.",
          .examples = {"access-two-vpns-one-vlan", "access-ranges-share-a-vlan"},
      },
      {
          .id = "access-range-at-bridge-domain",
          .point = "vpn_access_valp",
          .message = "%s %s interface %s must not be configured with the same dot1q %u between bridge-domain and "
                     "encapsulation minimum value in the dot1q-range [%u-%u]",
          .source = "config_validate_vpls/vpls_access_encapsulation.cc",
          .provokes = "A dot1q-range of a VPLS access interface begins at the dot1q of its own bridge domain. Only the "
                      "range's minimum is compared: a bridge-domain VLAN further up in the range passes. In a VPWS VPN "
                      "a range may begin at the interface's dot1q.",
          .why =
              "A port's VLANs are kept by the first of each range. The bridge domain's VLAN and the range would be one "
              "entry, and the range's other VLANs would belong to no VPN.",
          .remedy = "Begin the range above the bridge domain's VLAN, or give the bridge domain another dot1q.",
          .examples = {"access-range-begins-at-bridge-domain-vlan"},
      },
      {
          .id = "access-untagged-twice",
          .point = "vpn_access_valp",
          .message = "%s encapsulation untagged cannot be set simultaneously in %s %s and %s %s",
          .source = "config_validate_comn/access_interface_checks.cc",
          .provokes = "Two VPNs take the untagged frames of one port. It passes where the one that is taken first, "
                      "VPWS before VPLS, also has a dot1q and no range: then the VLAN is what is remembered of it.",
          .why = "Untagged frames carry nothing that tells them apart: all of a port's belong to one VPN.",
          .remedy =
              "Leave the untagged frames to one of the two; take the other's customer in with a VLAN or on another "
              "port.",
          .examples = {"access-untagged-twice", "access-untagged-twice-vpws"},
      },
      {
          .id = "service-port-mixed-use",
          .point = "vpn_access_valp",
          .message = "%s cannot be used on port-based and VLAN based VPNs at the same time",
          .source = "config_validate_comn/access_interface_checks.cc",
          .provokes = "Several VPNs use one service port, and one of them takes it whole while another does not. A "
                      "service port is any interface with service-port in its name.",
          .why =
              "A service port hands its frames either to one VPN, tags and all, or to several by their VLAN. It is set "
              "to one of the two ways as a whole.",
          .remedy = "Give every VPN on the service port a VLAN, or let one VPN have it alone.",
          .examples = {"service-port-port-based-and-vlan-based"},
      },
      {
          .id = "access-port-based-static-member",
          .point = "vpn_access_valp",
          .message =
              "%s %s interface %s is already assigned to dot1q vlan %d and can not be configured on a port-based "
              "VPN",
          .source = "config_validate_comn/vlan_manager_overlap.cc",
          .provokes =
              "A changed VPN takes the whole of a port that is a static member of a VLAN in the VLAN manager. The "
              "VLAN named is the lowest one that has such a port.",
          .why =
              "A port-based VPN takes every frame of the port, those of the VLAN too: the VLAN would lose its member "
              "without a word.",
          .remedy =
              "Remove the port from the static members of all VLANs in the same commit, or give the VPN a VLAN of "
              "its own on the port.",
          .examples = {"access-port-based-is-static-member"},
      },
      {
          .id = "service-port-bridge-mtu",
          .point = "vpn_access_valp",
          .message =
              "%s %s access-interface %s : VPLS VPN assigned to a service-port must have its bridge MTU lesser or "
              "equal than %u.",
          .source = "config_validate_comn/service_port_bridge_mtu.cc",
          .provokes = "A changed VPLS VPN with a service port has a bridge MTU above 2000 bytes, or none: nothing then "
                      "keeps it within the limit. Here a service port is an interface whose name begins with "
                      "service-port.",
          .why =
              "A service port carries frames of at most this size. Larger ones from the pseudowires or the other ports "
              "would be dropped there, which shows as a service that works until somebody sends a large packet.",
          .remedy = "Set the bridge domain's bridge-mtu to 2000 or less, or take the service port out of the VPN.",
          .examples = {"service-port-bridge-mtu-above-limit", "service-port-bridge-mtu-missing"},
      },
  };
}

}  // namespace rules
