#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_interface_kinds() {
  return {
      {
          .id = "interface-information",
          .point = "vpn_access_intf_valp",
          .message = "Cannot get information of interface %s",
          .source = "config_validate_vpls/vpls_interface_kind.cc",
          .provokes = "The daemon asked with a path that holds no node name at all. No commit does that.",
          .why =
              "Without a node the library does not know what it was asked about, and what it cannot judge it does not "
              "let pass.",
          .remedy = "It tells that daemon and library disagree about the data model: compare their versions and report "
                    "it. There is nothing to change in the commit.",
          .examples = {},
      },
      {
          .id = "vpls-service-port-mixed",
          .point = "vpn_access_intf_valp",
          .message = "Cannot configure access interfaces service-port and ethernet in the same VPN",
          .source = "config_validate_vpls/vpls_interface_kind.cc",
          .provokes = "An access interface is added to a VPLS VPN, and it is a service port while the VPN's first "
                      "other interface is none, or the other way round. Only the VPN that comes first in order of "
                      "group and VPN is looked at, together with those after it whose group and VPN names begin with "
                      "its own: every other VPN may mix.",
          .why =
              "A service port hands frames on without the learning and flooding of an Ethernet port. A bridge domain "
              "of both kinds would learn addresses on some of its ports only, and flood what it should forward.",
          .remedy = "Make all access interfaces of the VPN service ports, or none.",
          .examples = {"vpls-mixes-service-port-and-ethernet"},
      },
      {
          .id = "vpls-service-port-without-tls",
          .point = "vpn_access_intf_valp",
          .message = "To use a service-port as access interface, transparent-lan-service must be enabled",
          .source = "config_validate_vpls/vpls_interface_kind.cc",
          .provokes =
              "A service port is added to a VPLS VPN that has no transparent-lan-service. Here a service port is "
              "an interface whose name begins with service.",
          .why =
              "A service port passes tags and the customer's own control protocols through unread: it cannot take part "
              "in a bridge domain that reads them.",
          .remedy = "Set transparent-lan-service in the bridge domain, in the same commit, or use an Ethernet port.",
          .examples = {"vpls-service-port-without-tls"},
      },
      {
          .id = "vpws-service-port-name",
          .point = "vpn_sp_valp",
          .message = "%s is not valid. Verify available service-port interfaces",
          .source = "config_validate_vpws/vpws_service_port.cc",
          .provokes = "A VPWS access interface has service-port in its name, and what follows the name's last hyphen "
                      "does not begin with a number, or the number is above 2147483647.",
          .why =
              "A service port is known by its number. Without one it cannot be looked up whether it has a VLAN action.",
          .remedy = "Name a service port that the element has, such as service-port-1.",
          .examples = {"vpws-service-port-without-number"},
      },
      {
          .id = "vpws-service-port-vlan-action",
          .point = "vpn_sp_valp",
          .message = "Service-port with VLAN action not allowed on a VPN",
          .source = "config_validate_vpws/vpws_service_port.cc",
          .provokes = "A service port that matches a VLAN, or any VLAN, joins a VPWS VPN or is changed there.",
          .why =
              "The service port's own VLAN match changes tags before the VPN sees the frame. The two would work on one "
              "tag, and the far end would get frames with a tag that it does not expect.",
          .remedy = "Take the VLAN match off the service port in the same commit, or use another one.",
          .examples = {"vpws-service-port-with-vlan-action"},
      },
  };
}

}  // namespace rules
