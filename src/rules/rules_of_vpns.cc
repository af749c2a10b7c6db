#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_vpns() {
  return {
      {
          .id = "vpn-limit",
          .point = "vpn_overflow_valp",
          .message = "Maximum number of VPNs has been exceeded. Attempt to configure %d of %d allowed",
          .counts = true,
          .source = "config_validate_vpn/vpn_overflow.cc",
          .provokes =
              "VPLS and VPWS VPNs together are more than the card allows. Asked when the commit adds or changes "
              "a VPN; a commit that only takes VPNs away is never refused for this.",
          .why =
              "Each VPN takes an entry in the card's table of forwarding instances, which both families share. A VPN "
              "without an entry would stand in the configuration and carry no frame. A card that does not tell its "
              "limit allows -1: then every commit that touches a VPN is refused, since nothing is known to fit.",
          .remedy =
              "Delete VPNs that are no longer used, in the same commit or before it, or split the services over "
              "another card. Where -1 is allowed, find out why the card does not tell its limit; off the element, "
              "give the profile's card a vpn-max.",
          .examples = {"vpn-count-above-limit"},
      },
      {
          .id = "vpws-group-name",
          .point = "vpn_name_valp",
          .message =
              "VPWS Group name %s contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, "
              "=, :, ., (), +)",
          .source = "config_validate_vpws/vpws_names.cc",
          .provokes = "A VPWS group's name holds another character than these, a blank or a slash for instance. Every "
                      "VPWS group is looked at, also those that the commit leaves alone; VPLS groups are not.",
          .why =
              "The element's applications write the name into paths of their own tables, where a blank parts two keys, "
              "a slash two nodes, and braces and quotes end a key. The service would be looked for at a wrong place, "
              "and its pseudowires and attachments would not come up.",
          .remedy =
              "Give the group a name of the allowed characters. A group cannot be renamed: delete it and configure "
              "it under its new name, and mind that its pw-ids are still taken in the same commit.",
          .examples = {"vpws-group-name-with-blank"},
      },
      {
          .id = "vpws-vpn-name",
          .point = "vpn_name_valp",
          .message =
              "VPWS Group name %s VPN name %s contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, "
              "-, @, <>, &, =, :, ., (), +)",
          .source = "config_validate_vpws/vpws_names.cc",
          .provokes = "The name of a VPN in a VPWS group holds another character than these. Every VPN of every VPWS "
                      "group is looked at, a group's own name before those of its VPNs; VPLS VPNs are not.",
          .why = "As with the group's name: it becomes a key in paths of the element's applications, and a character "
                 "that means something in a path would lead them to a wrong place.",
          .remedy =
              "Give the VPN a name of the allowed characters. A VPN cannot be renamed: delete it and configure it "
              "under its new name, and mind that its pw-ids are still taken in the same commit.",
          .examples = {"vpws-vpn-name-with-slash"},
      },
  };
}

}  // namespace rules
