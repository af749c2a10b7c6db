#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_access_limits() {
  return {
      {
          .id = "access-interface-limit",
          .point = "vpn_access_valp",
          .message = "Maximum number of access-interfaces has been exceeded. Attempt to configure %d of %d allowed",
          .counts = true,
          .source = "config_validate_vpls/vpls_max_access_interfaces.cc",
          .provokes =
              "A VPLS VPN has more access interfaces than the card allows in one VPN. The message does not tell "
              "which: it is the first in order of group and VPN.",
          .why = "A bridge domain floods a frame to all its ports from one list of the card, and the list's length is "
                 "fixed: a port beyond it would get no broadcast and no unknown unicast. A card that does not tell its "
                 "limit allows -1, which every VPN with an access interface exceeds.",
          .remedy =
              "Take access interfaces out of the VPN, or divide it into several. Where -1 is allowed, find out why "
              "the card does not tell its limit; off the element, give the profile's card an access-ports.",
          .examples = {"access-interfaces-above-limit"},
      },
      {
          .id = "encapsulation-interface-range-limit",
          .point = "vpn_access_valp",
          .message =
              "Maximum number of VLAN ranges configured for access-interface %s on VPN Selective Encapsulation has "
              "been exceeded. Attempt to configure %d of %d allowed",
          .counts = true,
          .source = "config_validate_comn/selective_encapsulation_limit.cc",
          .provokes =
              "More than 8 dot1q-ranges of several VLANs on one access interface, over all VPNs that share it. A "
              "range of a single VLAN is not counted here. Counting ends at the first one too many: the message "
              "says 9 however many there are.",
          .why =
              "A port compares a frame's VLAN with its ranges in a handful of hardware comparators; a ninth range has "
              "none, and its frames would belong to no VPN.",
          .remedy = "Join neighbouring ranges, or move attachments to another port.",
          .examples = {"encapsulation-ranges-of-interface-above-limit"},
      },
      {
          .id = "encapsulation-vlan-limit",
          .point = "vpn_access_valp",
          .message =
              "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure %d of "
              "%d allowed",
          .counts = true,
          .source = "config_validate_comn/selective_encapsulation_limit.cc",
          .provokes = "The selectively encapsulated VLANs of all access interfaces are more than the card allows. A "
                      "dot1q-range counts as one, whatever its width; of an access interface with a range, the dot1q "
                      "of its bridge domain or its own counts as well, and a VPWS range that begins at it does not. "
                      "Attachments without a range count nothing.",
          .why =
              "Each of them takes an entry in the card's classification table. Frames of a VLAN without an entry would "
              "belong to no VPN. A card that does not tell its limit allows 0.",
          .remedy =
              "Write VLANs that stand side by side as one range, remove what is no longer used, or let a VPN have a "
              "port whole. Where 0 is allowed, find out why the card does not tell its limit; off the element, "
              "give the profile's card selective-encapsulation-vlan-entries.",
          .examples = {"encapsulation-vlans-above-card-limit"},
      },
      {
          .id = "encapsulation-range-limit",
          .point = "vpn_access_valp",
          .message =
              "Maximum number of VLAN ranges on VPN Selective Encapsulation has been exceeded. Attempt to configure "
              "%d of %d allowed",
          .counts = true,
          .source = "config_validate_comn/selective_encapsulation_limit.cc",
          .provokes =
              "The dot1q-ranges of several VLANs on all access interfaces are more than the card allows. They are "
              "counted among the VLANs, too, and that limit is compared first.",
          .why = "The card has range comparators apart from its table of single VLANs, and fewer of them. Frames of a "
                 "range without one would belong to no VPN. A card that does not tell its limit allows 0.",
          .remedy = "Join neighbouring ranges, write short ones as single VLANs where the card has room for these, or "
                    "remove what is no longer used. Where 0 is allowed, find out why the card does not tell its limit; "
                    "off the element, give the profile's card selective-encapsulation-vlan-ranges.",
          .examples = {"encapsulation-ranges-above-card-limit"},
      },
  };
}

}  // namespace rules
