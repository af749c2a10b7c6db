#ifndef DIAGNOSIS_ORACLE_H
#define DIAGNOSIS_ORACLE_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "diagnosis/budget_use.h"
#include "diagnosis/messages.h"
#include "diagnosis/restricted_commit.h"

namespace diagnosis {

/// Asks the library about restricted commits, every validation point of them, as often and as long as the budget
/// allows. The same question is asked once, large ones as far as there is room to keep them.
class Oracle {
 public:
  /// All that is referred to must outlive the oracle.
  Oracle(const host::Plugin &plugin, host::HostSession &session, const Entries &entries,
         const RevertibleChanges &changes, Messages &messages, const Options &options);

  /// The numbers of the messages that the restricted commit draws. Nothing where the search has ended. The parts of
  /// `taken_back()` are taken back in it, too.
  std::optional<NumberSet> ask(const RestrictedCommit &commit);

  /// The same of a commit to an element that has the running configuration: operator's nodes, sorted.
  std::optional<NumberSet> ask(element::Tree running, element::Tree candidate);

  /// The commit restricted to a closed set of entries draws the message; not where the search has ended.
  bool reproduces(const NumberSet &entries, std::uint32_t message);

  /// What every question takes back; see TakenBack.
  const NumberSet &taken_back() const { return taken_back_; }

  /// The search must end: a question was refused because the calls are used up, the time is over, the user interrupts,
  /// or the library broke its contract. Asked in loops that take long without a question, too.
  bool has_ended() { return budget_.has_ended(); }
  SearchEnd end() const { return budget_.end(); }
  std::uint64_t calls() const { return budget_.calls(); }
  Budget left() const { return budget_.left(); }

  /// Counts calls that another search made on the same budget.
  void add_calls(std::uint64_t calls) { budget_.add_calls(calls); }
  const std::string &contract_violation() const { return budget_.contract_violation(); }

  std::size_t findings = 0;  ///< so far, for the progress

 private:
  friend class TakenBack;

  struct Hash {
    std::size_t operator()(const RestrictedCommit &commit) const;
  };

  RestrictedCommit normalised(RestrictedCommit commit) const;
  std::optional<NumberSet> ask_normalised(const RestrictedCommit &commit);
  bool has_room_for(const RestrictedCommit &commit);
  std::optional<NumberSet> ask_library(const std::function<std::unique_ptr<element::Transaction>()> &make);

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const Entries &entries_;
  const RevertibleChanges &changes_;
  Messages &messages_;
  element::Projector projector_;
  BudgetUse budget_;
  std::unordered_map<RestrictedCommit, NumberSet, Hash> known_;
  std::size_t kept_of_large_ = 0;  ///< numbers in the large questions among these
  NumberSet taken_back_;
};

/// While it lives, the commit that is asked about is the one with a closed set of parts taken back.
class TakenBack {
 public:
  TakenBack(Oracle &oracle, NumberSet parts) : oracle_(oracle), before_(std::move(oracle.taken_back_)) {
    oracle_.taken_back_ = std::move(parts);
  }
  ~TakenBack() { oracle_.taken_back_ = std::move(before_); }
  TakenBack(const TakenBack &) = delete;
  TakenBack &operator=(const TakenBack &) = delete;

 private:
  Oracle &oracle_;
  NumberSet before_;
};

}  // namespace diagnosis

#endif
