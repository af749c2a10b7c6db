#ifndef DIAGNOSIS_INQUIRY_H
#define DIAGNOSIS_INQUIRY_H

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnosis/diagnose.h"
#include "diagnosis/places.h"
#include "host/run/commit.h"

namespace diagnosis {

/// An answer that is looked for in reduced commits.
struct Wanted {
  host::PointVerdict answer;
  bool on_rejected_commit = true;  ///< a commit that is rejected for whatever reason may give it; else it must not be
};

/// Asks the library about reduced commits, as often and as long as the budget allows.
class Inquiry {
 public:
  /// All that is referred to must outlive the inquiry.
  Inquiry(const host::Plugin &plugin, host::HostSession &session, const Places &places, const Options &options);

  /// The library's verdict, as the device would give it, with every derived table of the reduced configurations.
  /// Nothing where the budget is used up or the library breaks its contract.
  std::optional<host::Verdict> ask(const Shapes &shapes);

  /// The library gives the wanted answer, word for word, on the reduced commit.
  bool draws(const Shapes &shapes, const Wanted &wanted);

  /// The library gives the wanted answer, word for word, when what the reduced commit finds in force is committed to an
  /// element without any configuration.
  bool is_in_running(const Shapes &shapes, const Wanted &wanted);

  /// Entries that both configurations lack from now on, whatever is asked; they take the place of those before.
  void leave_out(std::vector<std::size_t> entries) { left_out_ = std::move(entries); }

  /// The shapes without what is left out.
  Shapes without_left_out(Shapes shapes) const;

  bool is_over() const { return over_; }

  /// What the library did against its contract when it was asked last, or empty.
  const std::string &breach() const { return breach_; }
  std::uint64_t calls() const { return calls_; }

  std::size_t faults = 0;  ///< found so far, for the progress

 private:
  bool may_ask();
  std::optional<host::Verdict> ask(element::Tree running, element::Tree candidate);

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const Places &places_;
  const Options &options_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  std::uint64_t calls_ = 0;
  bool over_ = false;
  std::vector<std::size_t> left_out_;
  std::string breach_;
};

/// Both are the same answer of the same point, wherever it fired.
bool is_same_answer(const host::PointVerdict &a, const host::PointVerdict &b);

}  // namespace diagnosis

#endif
