#include "diagnosis/diagnose.h"

#include <algorithm>

#include "confd_lib.h"
#include "diagnosis/change_units.h"
#include "diagnosis/excess.h"
#include "diagnosis/fault_search.h"
#include "diagnosis/inquiry.h"
#include "diagnosis/places.h"

namespace diagnosis {
namespace {

// With three choices of what is left out for a limit, any two units are together in one of the rests.
constexpr int kChoicesForLimit = 3;

/// What the library says: its rejection first, for it ends the commit; else its warnings.
std::vector<host::PointVerdict> spoken(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> warnings;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.result == CONFD_VALIDATION_WARN) warnings.push_back(point);
    if (point.result != CONFD_ERR) continue;
    warnings.insert(warnings.begin(), point);
    break;
  }
  return warnings;
}

class Diagnoser {
 public:
  Diagnoser(const host::Plugin &plugin, host::Seam &seam, const element::Transaction &transaction,
            const Options &options)
      : places_(transaction),
        units_(places_),
        inquiry_(plugin, seam, places_, options),
        search_(places_, units_, inquiry_),
        taken_back_(units_.size(), false) {}

  Diagnosis run(const host::Verdict &verdict, bool all_faults) {
    if (all_faults) find_all();
    const bool is_rejected = verdict.decision == host::Decision::rejected;
    std::vector<Fault> faults;
    for (const host::PointVerdict &answer : spoken(verdict)) faults.push_back(of_device(answer, is_rejected));
    std::move(faults_.begin(), faults_.end(), std::back_inserter(faults));
    return {std::move(faults), inquiry_.calls(), !inquiry_.is_over() && breach_.empty(), breach_};
  }

 private:
  void find_all() {
    for (int choice = 0; choice < kChoicesForLimit; ++choice) {
      find_in(all_but_taken_back());
      if (limits_.empty()) return;
    }
  }

  ItemSet all_but_taken_back() const {
    ItemSet set = taken_back_;
    set.flip();
    return set;
  }

  // Every turn takes something back, so that it ends.
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

  /// What has to go for the answer not to come again.
  ItemSet take_back(const ItemSet &within, const Wanted &wanted) {
    Excess known = excess_of_known_limit(within, wanted.answer);
    if (count(known.gone) > 0) return std::move(known.gone);
    FoundFault found = search_.find(within, wanted);
    ItemSet gone = found.taken_back;
    Excess excess = is_count(wanted.answer) ? leave_out_excess(within, add_limit(found)) : Excess{};
    if (count(excess.gone) > 0) {
      gone = std::move(excess.gone);
      if (count(excess.units) < count(found.own)) found.fault.enough = count(excess.units);
    } else {
      for (std::size_t unit = 0; unit < gone.size(); ++unit) taken_back_[unit] = taken_back_[unit] || gone[unit];
    }
    add(std::move(found.fault));
    return gone;
  }

  Excess excess_of_known_limit(const ItemSet &within, const host::PointVerdict &answer) {
    for (ExceededLimit &limit : limits_) {
      if (!is_same_limit(limit.answer, answer)) continue;
      Excess excess = leave_out_excess(within, limit);
      if (count(excess.gone) > 0) return excess;
    }
    return {};
  }

  ExceededLimit &add_limit(const FoundFault &found) {
    return limits_.emplace_back(
        ExceededLimit{found.fault.verdict, found.part, found.own, std::vector<std::uint32_t>(units_.size(), 0)});
  }

  Excess leave_out_excess(const ItemSet &within, ExceededLimit &limit) {
    Excess left_out = excess(units_, inquiry_, within, limit);
    for (std::size_t unit = 0; unit < left_out.gone.size(); ++unit) {
      if (left_out.gone[unit]) ++limit.times_left_out[unit];
    }
    return left_out;
  }

  void add(Fault fault) {
    faults_.push_back(std::move(fault));
    inquiry_.faults = faults_.size();
  }

  /// The fault of what the device says: among those that are found, or looked for in the whole commit.
  Fault of_device(const host::PointVerdict &answer, bool is_rejected) {
    const auto found = std::find_if(faults_.begin(), faults_.end(),
                                    [&answer](const Fault &fault) { return is_same_answer(fault.verdict, answer); });
    if (found == faults_.end()) return search_.find(ItemSet(units_.size(), true), {answer, is_rejected}).fault;
    Fault fault = std::move(*found);
    faults_.erase(found);
    return fault;
  }

  Places places_;
  ChangeUnits units_;
  Inquiry inquiry_;
  FaultSearch search_;
  ItemSet taken_back_;
  std::vector<ExceededLimit> limits_;
  std::vector<Fault> faults_;
  std::string breach_;
};

}  // namespace

Diagnosis diagnose(const host::Plugin &plugin, host::Seam &seam, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options) {
  return Diagnoser(plugin, seam, transaction, options).run(verdict, options.all_faults);
}

}  // namespace diagnosis
