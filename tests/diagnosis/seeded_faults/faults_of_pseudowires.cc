#include <fmt/format.h>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

/// A neighbour or backup neighbour of a VPN.
struct Pseudowire {
  Vpn vpn;
  std::string path;

  std::string line(std::uint32_t pw_id) const { return fmt::format("{}/pw-id = {}", path, pw_id); }
};

Pseudowire draw_pseudowire(NamePool &names, const std::string &address) {
  const Vpn vpn = draw_vpn(names);
  const bool is_backup = vpn.family == Family::vpws && names.coin();
  return {vpn, is_backup ? vpn.path() + "/backup-neighbor{" + address + "}" : vpn.neighbor(address)};
}

void put_pseudowire(Draft &draft, NamePool &names, const Pseudowire &pseudowire, std::uint32_t pw_id, Arrival arrival) {
  draft.candidate.push_back(pseudowire.line(pw_id));
  if (arrival == Arrival::stands) draft.running.push_back(pseudowire.line(pw_id));
  if (arrival == Arrival::changed) draft.running.push_back(pseudowire.line(names.pw_id()));
}

SeededFault pw_id_twice(Draft &draft, NamePool &names) {
  const std::string address = names.neighbor();
  const std::uint32_t pw_id = names.pw_id();
  const Pseudowire one = draw_pseudowire(names, address);
  const Pseudowire other = draw_pseudowire(names, address);
  const auto arrival = names.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
  const Arrival arrival_of_other = names.coin() ? Arrival::added : Arrival::changed;
  put_pseudowire(draft, names, one, pw_id, arrival);
  put_pseudowire(draft, names, other, pw_id, arrival_of_other);
  return {"pw-id-twice",
          fmt::format("The PW ID {} must be unique per neighbor", pw_id),
          {{one.path, status_of(arrival)}, {other.path, status_of(arrival_of_other)}}};
}

std::string moved_text(std::uint32_t pw_id, const Vpn &owner) {
  return fmt::format(
      "The PW ID {} was formerly assigned to VPN {} from Group {}. Delete VPN {}, its neighbor or backup-neighbor "
      "before applying changes",
      pw_id, owner.name, owner.group, owner.name);
}

// The pseudowires of one neighbour are gone through by pw-id, so that the message names the lower one's owner.
SeededFault swapped_pw_ids(Draft &draft, NamePool &names) {
  const std::string address = names.neighbor();
  const Pseudowire one = draw_pseudowire(names, address);
  const Pseudowire other = draw_pseudowire(names, address);
  const std::uint32_t first = names.pw_id();
  const std::uint32_t second = names.pw_id();
  draft.running.push_back(one.line(first));
  draft.running.push_back(other.line(second));
  draft.candidate.push_back(one.line(second));
  draft.candidate.push_back(other.line(first));
  return {"pw-id-moved",
          first < second ? moved_text(first, one.vpn) : moved_text(second, other.vpn),
          {{one.path, ChangeStatus::changed}, {other.path, ChangeStatus::changed}}};
}

// The former owner goes, alone or with its VPN.
SeededFault pw_id_given_away(Draft &draft, NamePool &names) {
  const std::string address = names.neighbor();
  const Pseudowire owner = draw_pseudowire(names, address);
  const Pseudowire heir = draw_pseudowire(names, address);
  const std::uint32_t pw_id = names.pw_id();
  draft.running.push_back(owner.line(pw_id));
  if (names.coin()) draft.both(owner.vpn.path());
  const Arrival arrival = names.coin() ? Arrival::added : Arrival::changed;
  put_pseudowire(draft, names, heir, pw_id, arrival);
  return {"pw-id-moved",
          moved_text(pw_id, owner.vpn),
          {{owner.path, ChangeStatus::removed}, {heir.path, status_of(arrival)}}};
}

SeededFault neighbor_turned_backup(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpws);
  const std::string address = names.neighbor();
  const Pseudowire neighbor{vpn, vpn.neighbor(address)};
  const Pseudowire backup{vpn, vpn.path() + "/backup-neighbor{" + address + "}"};
  const std::uint32_t pw_id = names.pw_id();
  draft.running.push_back(neighbor.line(pw_id));
  draft.candidate.push_back(backup.line(pw_id));
  return {"pw-id-moved",
          moved_text(pw_id, vpn),
          {{neighbor.path, ChangeStatus::removed}, {backup.path, ChangeStatus::added}}};
}

SeededFault pw_id_moved(Draft &draft, NamePool &names) {
  const std::vector<SeedFault> ways{swapped_pw_ids, pw_id_given_away, neighbor_turned_backup};
  return names.one_of(ways)(draft, names);
}

}  // namespace

std::vector<FaultKind> pseudowire_faults() { return {{"pw-id-twice", pw_id_twice}, {"pw-id-moved", pw_id_moved}}; }

}  // namespace seeded
