#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "fm.h"

namespace {

constexpr std::int32_t kMaxRangesOfInterface = 8;

struct vlan_counts_t {
  std::int32_t entries = 0;
  std::int32_t ranges = 0;
};

void count_range(const st_acc_dot1q_range_t &range, vlan_counts_t &counts) {
  if (range.vlan_min == 0 || range.vlan_max == 0) return;
  ++counts.entries;
  if (range.vlan_min != range.vlan_max) ++counts.ranges;
}

// Counts up to the first range too many, so that the message always tells 9 of 8.
vlan_counts_t count_interface(const intf_vpns_t &records) {
  vlan_counts_t counts;
  for (const auto &[vpn, record] : records) {
    if (!record.encap_cfg) continue;
    for (const st_acc_dot1q_range_t &range : record.dot1q_ranges) {
      count_range(range, counts);
      if (counts.ranges > kMaxRangesOfInterface) return counts;
    }
  }
  return counts;
}

std::int32_t count_card(confd_trans_ctx *tctx, const intf_map_t &intf_map, vlan_counts_t &card) {
  for (const auto &[interface, records] : intf_map) {
    const vlan_counts_t counts = count_interface(records);
    if (counts.ranges > kMaxRangesOfInterface) {
      confd_trans_seterr(
          tctx,
          "Maximum number of VLAN ranges configured for access-interface %s on VPN Selective Encapsulation has been exceeded. Attempt to configure %d of %d allowed",
          interface.c_str(), counts.ranges, kMaxRangesOfInterface);
      return CONFD_ERR;
    }
    card.entries += counts.entries;
    card.ranges += counts.ranges;
  }
  return CONFD_OK;
}

// No status is looked at: a failed read leaves a limit of 0, which no selective encapsulation passes.
vlan_counts_t read_card_limits() {
  fm_slot_t slot{};
  std::uint32_t entries = 0;
  std::uint32_t ranges = 0;
  fm_init();
  fm_local_slot(&slot);
  fm_scalar_card_selective_encapsulation_max_vlan_entries(&slot, &entries);
  fm_scalar_card_selective_encapsulation_max_vlan_ranges(&slot, &ranges);
  return {static_cast<std::int32_t>(entries), static_cast<std::int32_t>(ranges)};
}

std::int32_t compare_with_card(confd_trans_ctx *tctx, const vlan_counts_t &card, const vlan_counts_t &limits) {
  if (card.entries > limits.entries) {
    confd_trans_seterr(
        tctx,
        "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure %d of %d allowed",
        card.entries, limits.entries);
    return CONFD_ERR;
  }
  if (card.ranges > limits.ranges) {
    confd_trans_seterr(
        tctx,
        "Maximum number of VLAN ranges on VPN Selective Encapsulation has been exceeded. Attempt to configure %d of %d allowed",
        card.ranges, limits.ranges);
    return CONFD_ERR;
  }
  return CONFD_OK;
}

}  // namespace

// - Without any encapsulation the card is not asked for its limits.
// - Counted are the attachments that have an encapsulation: a single VLAN is an entry; a range is an entry and a range,
//   whatever its width; without VLAN it is neither. An absorbed range is not counted, the basic VLAN that absorbed it
//   is.
// - An interface has at most 8 ranges, over all its VPNs; this comes before the card's limits.
// - The card's VLAN entries, then its VLAN ranges. Both comparisons are signed.
std::int32_t config_validate_select_encap_limit(int /*sock*/, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_interface_with_encapsulation(snapshot.intf_map)) return CONFD_OK;

  vlan_counts_t card;
  if (count_card(tctx, snapshot.intf_map, card) != CONFD_OK) return CONFD_ERR;
  return compare_with_card(tctx, card, read_card_limits());
}
