#include <limits>

#include "headroom/fill.h"

namespace headroom {

Site::Site(const Commit &commit)
    : candidate(commit.candidate),
      profile(commit.profile),
      spare(commit.running, commit.candidate, commit.profile),
      transaction(element::make_transaction(commit.running, commit.candidate, commit.profile)),
      vpls(configured_vpns(candidate, Family::vpls)),
      vpws(configured_vpns(candidate, Family::vpws)) {}

std::int64_t Site::derived_entries(std::string_view list) const {
  const element::Node *entries = transaction->candidate.find(list);
  return entries == nullptr ? 0 : static_cast<std::int64_t>(entries->children.size());
}

element::CardLimits card_of_endless_vlans(const element::CardLimits &card) {
  // The library compares signed numbers.
  constexpr auto endless = std::numeric_limits<std::int32_t>::max();
  element::CardLimits endless_card = card;
  endless_card.selective_encapsulation_vlan_entries = endless;
  endless_card.selective_encapsulation_vlan_ranges = endless;
  return endless_card;
}

}  // namespace headroom
