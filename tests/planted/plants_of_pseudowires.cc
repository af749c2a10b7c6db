#include <fmt/format.h>

#include "tests/planted/plant.h"

namespace planted {
namespace {

using diagnosis::Standing;

/// A neighbour or backup neighbour of a VPN.
struct Pseudowire {
  Vpn vpn;
  std::string path;

  std::string line(std::uint32_t pw_id) const { return fmt::format("{}/pw-id = {}", path, pw_id); }
};

Pseudowire draw_pseudowire(Supply &supply, const std::string &address) {
  const Vpn vpn = draw_vpn(supply);
  const bool is_backup = vpn.family == Family::vpws && supply.coin();
  return {vpn, is_backup ? vpn.path() + "/backup-neighbor{" + address + "}" : vpn.neighbor(address)};
}

void put_pseudowire(Draft &draft, Supply &supply, const Pseudowire &pseudowire, std::uint32_t pw_id, Arrival arrival) {
  draft.candidate.push_back(pseudowire.line(pw_id));
  if (arrival == Arrival::stands) draft.running.push_back(pseudowire.line(pw_id));
  if (arrival == Arrival::changed) draft.running.push_back(pseudowire.line(supply.pw_id()));
}

Planted pw_id_twice(Draft &draft, Supply &supply) {
  const std::string address = supply.neighbor();
  const std::uint32_t pw_id = supply.pw_id();
  const Pseudowire one = draw_pseudowire(supply, address);
  const Pseudowire other = draw_pseudowire(supply, address);
  const auto arrival = supply.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
  const Arrival arrival_of_other = supply.coin() ? Arrival::added : Arrival::changed;
  put_pseudowire(draft, supply, one, pw_id, arrival);
  put_pseudowire(draft, supply, other, pw_id, arrival_of_other);
  return {"pw-id-twice",
          fmt::format("The PW ID {} must be unique per neighbor", pw_id),
          {{one.path, standing_of(arrival)}, {other.path, standing_of(arrival_of_other)}}};
}

std::string moved_text(std::uint32_t pw_id, const Vpn &owner) {
  return fmt::format(
      "The PW ID {} was formerly assigned to VPN {} from Group {}. Delete VPN {}, its neighbor or backup-neighbor "
      "before applying changes",
      pw_id, owner.name, owner.group, owner.name);
}

// The pseudowires of one neighbour are gone through by pw-id, so that the message names the lower one's owner.
Planted swapped_pw_ids(Draft &draft, Supply &supply) {
  const std::string address = supply.neighbor();
  const Pseudowire one = draw_pseudowire(supply, address);
  const Pseudowire other = draw_pseudowire(supply, address);
  const std::uint32_t first = supply.pw_id();
  const std::uint32_t second = supply.pw_id();
  draft.running.push_back(one.line(first));
  draft.running.push_back(other.line(second));
  draft.candidate.push_back(one.line(second));
  draft.candidate.push_back(other.line(first));
  return {"pw-id-moved",
          first < second ? moved_text(first, one.vpn) : moved_text(second, other.vpn),
          {{one.path, Standing::changed}, {other.path, Standing::changed}}};
}

// The former owner goes, alone or with its VPN.
Planted pw_id_given_away(Draft &draft, Supply &supply) {
  const std::string address = supply.neighbor();
  const Pseudowire owner = draw_pseudowire(supply, address);
  const Pseudowire heir = draw_pseudowire(supply, address);
  const std::uint32_t pw_id = supply.pw_id();
  draft.running.push_back(owner.line(pw_id));
  if (supply.coin()) draft.both(owner.vpn.path());
  const Arrival arrival = supply.coin() ? Arrival::added : Arrival::changed;
  put_pseudowire(draft, supply, heir, pw_id, arrival);
  return {"pw-id-moved",
          moved_text(pw_id, owner.vpn),
          {{owner.path, Standing::removed}, {heir.path, standing_of(arrival)}}};
}

Planted neighbor_turned_backup(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpws);
  const std::string address = supply.neighbor();
  const Pseudowire neighbor{vpn, vpn.neighbor(address)};
  const Pseudowire backup{vpn, vpn.path() + "/backup-neighbor{" + address + "}"};
  const std::uint32_t pw_id = supply.pw_id();
  draft.running.push_back(neighbor.line(pw_id));
  draft.candidate.push_back(backup.line(pw_id));
  return {"pw-id-moved", moved_text(pw_id, vpn), {{neighbor.path, Standing::removed}, {backup.path, Standing::added}}};
}

Planted pw_id_moved(Draft &draft, Supply &supply) {
  const std::vector<Plant> ways{swapped_pw_ids, pw_id_given_away, neighbor_turned_backup};
  return supply.one_of(ways)(draft, supply);
}

}  // namespace

std::vector<PlantKind> pseudowire_plants() { return {{"pw-id-twice", pw_id_twice}, {"pw-id-moved", pw_id_moved}}; }

}  // namespace planted
