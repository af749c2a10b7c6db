#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_access_warnings() {
  return {
      {
          .id = "access-on-uplink",
          .point = "vpn_access_valp",
          .severity = Severity::warning,
          .message = "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces "
                     "will not be able to encapsulate MPLS traffic",
          .source = "config_validate_comn/uplink.h",
          .provokes =
              "The port of a changed access interface is a static member of the VLAN of an LDP uplink. The text "
              "names no interface and is said once, however many are concerned.",
          .why =
              "Labelled frames leave by the uplink's ports. A frame that the VPN takes in on such a port would have to "
              "leave by the port on which it came, so it gets no label: the access interface carries nothing towards "
              "the network.",
          .remedy = "Put the access interface on another port, or take the port out of the uplink's VLAN. Confirm the "
                    "commit only where the port is to be an uplink's for a while, as in a migration.",
          .examples = {"uplink-shares-access-port"},
      },
      {
          .id = "tls-beside-vpws",
          .point = "vpn_access_valp",
          .severity = Severity::warning,
          .message = "All VPLS assigned to interface %s will run as TLS since %s %s has port based TLS behavior",
          .source = "config_validate_comn/transparent_lan_service.cc",
          .provokes =
              "A VPWS VPN takes a port whole on which a VPLS VPN has a VLAN, and the commit changes one of the "
              "two. The VPN named is the VPLS, the last in order where there are several, not the VPWS that makes "
              "it so.",
          .why =
              "A port that a VPN takes whole passes its frames on transparently: tags and the customer's own control "
              "protocols go through unread. That is set for the port, so every VPLS VPN on it runs as transparent LAN "
              "service, whatever its own setting.",
          .remedy =
              "Where the VPLS must not be transparent, give the VPWS a VLAN of its own on the port or move one of "
              "the two to another port. Otherwise confirm the commit.",
          .examples = {"tls-port-based-vpws-next-to-vpls"},
      },
      {
          .id = "tls-port-based-vpls",
          .point = "vpn_access_valp",
          .severity = Severity::warning,
          .message =
              "All VPLS assigned to interface %s will run as TLS since vpls-group %s vpn-name %s has port based TLS "
              "behavior",
          .source = "config_validate_comn/transparent_lan_service.cc",
          .provokes =
              "The commit changes a VPLS VPN that has transparent-lan-service and takes its ports whole. All its "
              "interfaces are named when the service or the VLAN changed, else those that were added or changed; "
              "of a VPN with more than 16, the first 16 are looked at. A service port as the first interface "
              "keeps the warning silent.",
          .why =
              "A port that such a VPN takes whole passes tags and the customer's own control protocols through unread. "
              "That is set for the port, so every VPLS VPN on it runs as transparent LAN service, whatever its own "
              "setting.",
          .remedy = "Where another VPLS on these ports must not be transparent, give this one a VLAN, or take "
                    "transparent-lan-service off it. Otherwise confirm the commit.",
          .examples = {"tls-switched-on", "tls-switched-on-many-interfaces", "tls-interface-added"},
      },
  };
}

}  // namespace rules
