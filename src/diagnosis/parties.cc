#include "diagnosis/parties.h"

#include <algorithm>
#include <string_view>

namespace diagnosis {
namespace {

using element::Node;

bool is_range(const Place &place) { return place.is_entry() && place.schema->name == "dot1q-range"; }

std::optional<std::string> value_text(const Node *leaf) {
  if (leaf == nullptr || leaf->schema->kind != element::NodeKind::leaf) return std::nullopt;
  if (leaf->schema->type == element::ValueType::empty) return std::nullopt;
  return element::to_text(leaf->value);
}

class Collector {
 public:
  Collector(const Places &places, const Shapes &smallest, const std::vector<bool> &touched)
      : places_(places), smallest_(smallest), touched_(touched) {}

  std::vector<Party> run() {
    for (std::size_t number = 0; number < places_.size(); ++number) {
      if (is_shown(number) && is_thing(places_[number]) && !holds_thing(number)) add_party(number);
    }
    std::stable_partition(parties_.begin(), parties_.end(),
                          [](const Party &party) { return party.standing != Standing::unchanged; });
    return std::move(parties_);
  }

 private:
  // What stands below a dropped place is dropped, and what stands below a missing one is missing.
  bool is_shown(std::size_t number) const { return places_[number].is_there(smallest_[number]); }

  // What the smallest commit can do without may be just what the commit changes: a VLAN that is taken away.
  bool tells(std::size_t number) const {
    const bool is_detail = places_[number].is_leaf() || is_range(places_[number]);
    return is_detail && (is_shown(number) || touched_[number]);
  }

  bool holds_thing(std::size_t number) const {
    for (std::size_t inner = number + 1; inner < places_[number].end; ++inner) {
      if (is_thing(places_[inner]) && is_shown(inner)) return true;
    }
    return false;
  }

  void add_party(std::size_t number) {
    Party party;
    party.path = places_.path_of(number);
    party.place = number;
    party.standing = standing_of(places_[number]);
    name(party);
    add_details_around(number, party);
    add_details_below(number, party);
    const bool has_changed_detail = std::any_of(party.details.begin(), party.details.end(), [](const Detail &detail) {
      return detail.standing != Standing::unchanged;
    });
    if (party.standing == Standing::unchanged && has_changed_detail) party.standing = Standing::changed;
    parties_.push_back(std::move(party));
  }

  static void name(Party &party) {
    for (const element::PathStep &step : party.path) {
      if (step.keys.empty()) continue;
      const std::string &list = step.schema->name;
      const std::string key = element::to_text(step.keys.front());
      if (list == "vpls-group" || list == "vpws-group") party.group = list + " " + key;
      if (list == "vpn") party.vpn = key;
      if (list == "access-interface" || list == "interface" || list == "l3-interface") party.interface = key;
      if (list == "service-port") party.interface = list + "-" + key;
      if (list == "neighbor" || list == "backup-neighbor") party.neighbor = key;
    }
  }

  // A VPN's own leafs tell what its attachments take.
  void add_details_around(std::size_t number, Party &party) const {
    std::vector<std::size_t> entries;
    for (std::size_t entry = number; places_[entry].parent != entry;) {
      entry = places_.entry_of(places_[entry].parent);
      if (!places_[entry].is_entry()) break;
      entries.push_back(entry);
    }
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) add_leafs_of(*entry, party);
  }

  void add_leafs_of(std::size_t entry, Party &party) const {
    for (std::size_t inner = entry + 1; inner < places_[entry].end;) {
      if (places_[inner].is_leaf() && tells(inner)) add_detail(inner, party);
      inner = places_[inner].is_entry() ? places_[inner].end : inner + 1;
    }
  }

  void add_details_below(std::size_t number, Party &party) const {
    for (std::size_t inner = number + 1; inner < places_[number].end;) {
      if (tells(inner)) add_detail(inner, party);
      inner = is_thing(places_[inner]) ? places_[inner].end : inner + 1;
    }
  }

  void add_detail(std::size_t number, Party &party) const {
    const LeafValues values = values_of(places_[number]);
    party.details.push_back(
        {standing_of(places_[number]), places_.path_of(number), values.old_value, values.new_value});
  }

  const Places &places_;
  const Shapes &smallest_;
  const std::vector<bool> &touched_;
  std::vector<Party> parties_;
};

}  // namespace

bool is_thing(const Place &place) { return place.is_entry() && !is_range(place); }

std::vector<Party> parties_of(const Places &places, const Shapes &smallest, const std::vector<bool> &touched) {
  return Collector(places, smallest, touched).run();
}

Standing standing_of(const Place &place) {
  if (place.before == nullptr) return Standing::added;
  if (place.after == nullptr) return Standing::removed;
  return place.before->value == place.after->value ? Standing::unchanged : Standing::changed;
}

LeafValues values_of(const Place &place) { return {value_text(place.before), value_text(place.after)}; }

}  // namespace diagnosis
