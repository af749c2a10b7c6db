#include "rules/rule_rows.h"

namespace rules {

std::vector<Rule> rules_of_pseudowires() {
  return {
      {
          .id = "pseudowire-limit",
          .point = "vpn_peer_valp",
          .message = "Maximum number of neighbors has been exceeded. Attempt to configure %d of %d allowed",
          .counts = true,
          .source = "config_validate_vpn/pw_overflow.cc",
          .provokes = "More than 1024 pseudowires: the neighbours and backup neighbours of both families together, "
                      "whichever element they lead to.",
          .why =
              "Each pseudowire takes a pair of labels and an entry in the table of pseudowires, whose size is the same "
              "on every card. One beyond it would be signalled and then carry nothing.",
          .remedy = "Delete neighbours or backup neighbours that are no longer used, in the same commit or before it.",
          .examples = {"pseudowires-above-limit"},
      },
      {
          .id = "pw-id-twice",
          .point = "vpn_peer_valp",
          .message = "The PW ID %u must be unique per neighbor",
          .source = "config_validate_comn/pseudowire_rules.cc",
          .provokes = "Two pseudowires towards one neighbour have the same pw-id, whichever family they belong to. "
                      "Towards different neighbours a pw-id may be used again.",
          .why =
              "The two ends of a pseudowire find each other by pw-id: it is what the label is offered under. With two "
              "of the same number the neighbour could not tell which label belongs to which service, and the frames of "
              "one would come out in the other.",
          .remedy =
              "Give one of the two another pw-id, on both ends. The message tells the pw-id alone: look for it at "
              "the neighbours and backup neighbours of all VPLS and VPWS VPNs.",
          .examples = {"pw-id-twice-towards-a-neighbour"},
      },
      {
          .id = "pw-id-moved",
          .point = "vpn_peer_valp",
          .message = "The PW ID %u was formerly assigned to VPN %s from Group %s. Delete VPN %s, its neighbor or "
                     "backup-neighbor before applying changes",
          .source = "config_validate_comn/pseudowire_rules.cc",
          .provokes = "A pw-id that the commit sets is one that the running configuration already has towards the same "
                      "neighbour: two pw-ids are swapped, or one goes to another VPN, or from neighbour to backup "
                      "neighbour of one VPN. That the commit deletes the former owner makes no difference. While a "
                      "pseudowire with pw-id 0 is in force, it is named by every commit that sets any pw-id and has "
                      "pseudowires towards that neighbour.",
          .why = "Applications take up the changes of a commit one by one, in an order of their own. While both owners "
                 "are in force, two pseudowires have one pw-id: labels of one service would be bound to the other, and "
                 "frames would cross between customers.",
          .remedy =
              "Make two commits of it: take the pw-id from its former owner in the first, give it to the new one in "
              "the second. Where the message names pw-id 0, delete that neighbour in a commit that sets no pw-id, and "
              "give it another pw-id in the next.",
          .examples = {"pw-ids-swapped", "pw-id-moved-to-another-vpn", "pw-id-of-backup-neighbour-moved"},
      },
  };
}

}  // namespace rules
