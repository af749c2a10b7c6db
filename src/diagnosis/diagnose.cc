#include "diagnosis/diagnose.h"

#include <algorithm>

#include "diagnosis/change_units.h"
#include "diagnosis/excess.h"
#include "diagnosis/fault_search.h"
#include "diagnosis/inquiry.h"
#include "diagnosis/places.h"

namespace diagnosis {
namespace {

/// A fault that the running configuration has: any change that makes the library look draws it.
struct StandingFault {
  std::vector<std::size_t> parties;  ///< by place, those that the commit leaves as they are
};

std::vector<std::size_t> untouched_parties(const Fault &fault) {
  std::vector<std::size_t> places;
  for (const Party &party : fault.parties) {
    if (party.standing == Standing::unchanged) places.push_back(party.place);
  }
  return places;
}

// With three choices of what is left out for a limit, any two units are together in one of the rests.
constexpr std::size_t kChoices = 3;

/// What the library says: its rejection first, for it ends the commit; else its warnings.
std::vector<host::PointVerdict> spoken(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> warnings;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::warned) warnings.push_back(point);
    if (point.answer != host::Answer::rejected) continue;
    warnings.insert(warnings.begin(), point);
    break;
  }
  return warnings;
}

class Diagnoser {
 public:
  Diagnoser(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
            const Options &options)
      : places_(transaction),
        units_(places_),
        inquiry_(plugin, session, places_, options),
        search_(places_, units_, inquiry_),
        taken_back_(units_.size(), false) {}

  Diagnosis run(const host::Verdict &verdict, bool all_faults) {
    if (all_faults) find_all();
    const bool is_rejected = verdict.decision == host::Decision::rejected;
    std::vector<Fault> faults;
    for (const host::PointVerdict &answer : spoken(verdict)) faults.push_back(of_device({answer, is_rejected}));
    std::move(faults_.begin(), faults_.end(), std::back_inserter(faults));
    return {std::move(faults), inquiry_.calls(), !inquiry_.is_over() && breach_.empty(), breach_};
  }

 private:
  void find_all() {
    for (choice_ = 0; choice_ < kChoices; ++choice_) {
      leave_out_standing_faults();
      find_in(all_but_taken_back());
      if (limits_.empty() && standing_.empty()) break;
    }
    inquiry_.leave_out({});
  }

  ItemSet all_but_taken_back() const {
    ItemSet set = taken_back_;
    set.flip();
    return set;
  }

  // Every turn takes something back or leaves a party out, so that it ends.
  void find_in(ItemSet within) {
    while (const std::optional<host::Verdict> verdict = inquiry_.ask(units_.shapes(within))) {
      const std::vector<host::PointVerdict> answers = spoken(*verdict);
      if (answers.empty()) return;
      const bool is_rejected = verdict->decision == host::Decision::rejected;
      const ItemSet gone = take_back(within, {answers.front(), is_rejected});
      within = without(std::move(within), gone);
    }
    if (breach_.empty()) breach_ = inquiry_.breach();
  }

  /// What has to go for the answer not to come again. What comes only where something else was left out for a limit is
  /// no fault of the commit: it goes, and is not told.
  ItemSet take_back(const ItemSet &within, const Wanted &wanted) {
    const Excess known = excess_of_known_limit(within, wanted.answer);
    if (count(known.gone) > 0) return known.gone;
    const ItemSet whole = all_but_taken_back();
    FoundFault found = search_.find(within, whole, wanted);
    if (found.is_mended && within != whole && !is_count(wanted.answer)) return found.taken_back;
    if (is_standing(found)) return ItemSet(units_.size(), false);
    const Excess excess = add_limit(within, found);
    add(std::move(found.fault));
    if (count(excess.gone) > 0) return excess.gone;
    taken_back_ = either(taken_back_, found.taken_back);
    return found.taken_back;
  }

  // To take back whatever makes the library look would hide all that it looks at. So the fault itself goes, one of its
  // parties, another one each time, for new faults may be with either.
  bool is_standing(const FoundFault &found) {
    StandingFault standing{untouched_parties(found.fault)};
    if (!found.stands_alone || is_count(found.fault.verdict) || standing.parties.empty()) return false;
    standing_.push_back(std::move(standing));
    leave_out_standing_faults();
    add(found.fault);
    return true;
  }

  void leave_out_standing_faults() {
    std::vector<std::size_t> places;
    for (const StandingFault &fault : standing_) places.push_back(fault.parties[choice_ % fault.parties.size()]);
    inquiry_.leave_out(std::move(places));
  }

  Excess excess_of_known_limit(const ItemSet &within, const host::PointVerdict &answer) {
    for (ExceededLimit &limit : limits_) {
      if (!is_same_limit(limit.answer, answer)) continue;
      Excess excess = leave_out_excess(within, limit);
      if (count(excess.gone) > 0) return excess;
    }
    return {};
  }

  /// Notes a limit that is met first, and how much of what it counts is too many. Nothing where it is none, or where
  /// leaving out all that it counts does not help.
  Excess add_limit(const ItemSet &within, FoundFault &found) {
    if (!is_count(found.fault.verdict)) return {};
    limits_.push_back({found.fault.verdict, found.part, found.own, std::vector<std::uint32_t>(units_.size(), 0)});
    Excess excess = leave_out_excess(within, limits_.back());
    const ItemSet choices = outermost(units_.items(), found.own);
    if (count(excess.units) > 0 && count(excess.units) < count(choices)) {
      search_.offer(found, choices);
      found.fault.enough = count(excess.units);
    }
    return excess;
  }

  Excess leave_out_excess(const ItemSet &within, ExceededLimit &limit) {
    Excess left_out = excess(units_, inquiry_, within, limit);
    for (std::size_t unit = 0; unit < left_out.gone.size(); ++unit) {
      if (left_out.gone[unit]) ++limit.times_left_out[unit];
    }
    return left_out;
  }

  // Several changes of one party may each make the library look at what was in force before.
  bool is_told(const Fault &fault) const {
    const auto places = [](const Fault &one) {
      std::vector<std::size_t> numbers;
      for (const Party &party : one.parties) numbers.push_back(party.place);
      std::sort(numbers.begin(), numbers.end());
      return numbers;
    };
    return fault.in_running && std::any_of(faults_.begin(), faults_.end(), [&](const Fault &one) {
             return is_same_answer(one.verdict, fault.verdict) && places(one) == places(fault);
           });
  }

  void add(Fault fault) {
    if (is_told(fault)) return;
    faults_.push_back(std::move(fault));
    inquiry_.faults = faults_.size();
  }

  /// The fault of what the device says: among those that are found, or looked for in the whole commit.
  Fault of_device(const Wanted &wanted) {
    const auto known = std::find_if(faults_.begin(), faults_.end(), [&wanted](const Fault &fault) {
      return is_same_answer(fault.verdict, wanted.answer);
    });
    if (known == faults_.end()) {
      const ItemSet all(units_.size(), true);
      FoundFault found = search_.find(all, all, wanted);
      add_limit(all, found);
      return std::move(found.fault);
    }
    Fault fault = std::move(*known);
    faults_.erase(known);
    return fault;
  }

  Places places_;
  ChangeUnits units_;
  Inquiry inquiry_;
  FaultSearch search_;
  ItemSet taken_back_;
  std::vector<ExceededLimit> limits_;
  std::vector<StandingFault> standing_;
  std::size_t choice_ = 0;
  std::vector<Fault> faults_;
  std::string breach_;
};

}  // namespace

Diagnosis diagnose(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options) {
  return Diagnoser(plugin, session, transaction, options).run(verdict, options.all_faults);
}

}  // namespace diagnosis
