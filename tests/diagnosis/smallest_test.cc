// What is found is compared with what a search through all there is finds, for commits of few parts.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <functional>

#include "diagnosis/change_units.h"
#include "diagnosis/configuration_items.h"
#include "diagnosis/inquiry.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/element/drawn_configuration.h"

namespace {

using diagnosis::ChangeUnits;
using diagnosis::ConfigurationItems;
using diagnosis::Fault;
using diagnosis::Items;
using diagnosis::ItemSet;
using diagnosis::Places;
using diagnosis::Shapes;

/// The search promises the smallest of all up to so many parts or items.
constexpr std::size_t kMost = 10;

/// The size of the smallest set that lacks nothing and holds; more than there are where none does.
std::size_t smallest_size(const Items &items, const std::function<bool(const ItemSet &)> &holds) {
  std::size_t smallest = items.size() + 1;
  for (std::size_t bits = 0; bits < std::size_t{1} << items.size(); ++bits) {
    ItemSet set(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) set[i] = (bits >> i & 1) != 0;
    const std::size_t size = diagnosis::count(set);
    if (size < smallest && diagnosis::with_needs(items, set) == set && holds(set)) smallest = size;
  }
  return smallest;
}

class Exhaustive {
 public:
  Exhaustive(const Lines &running, const Lines &candidate)
      : transaction_(element_.transaction(tree_of(running), tree_of(candidate))) {}

  std::size_t units() const { return units_.size(); }

  diagnosis::Diagnosis diagnose() {
    return element_.diagnose(*transaction_, {.all_faults = false, .budget = {}, .progress = {}});
  }

  std::size_t smallest_part(const host::PointVerdict &answer) {
    return smallest_size(units_.items(), [&](const ItemSet &set) { return draws(units_.shapes(set), answer); });
  }

  std::size_t entries_of_smallest_configuration(const Shapes &part, const host::PointVerdict &answer) {
    const ConfigurationItems items(places_, part);
    if (items.size() > kMost) return 0;
    return smallest_size(items.items(), [&](const ItemSet &set) { return draws(items.shapes(set), answer); });
  }

  /// The commit's units at the parts that a fault names.
  Shapes part_of(const Fault &fault) const {
    ItemSet set(units_.size(), false);
    for (std::size_t unit = 0; unit < units_.size(); ++unit) {
      const std::string path = to_text(places_.path_of(units_.place(unit)));
      const auto is_at = [&path](const diagnosis::ChangePart &part) { return to_text(part.path) == path; };
      set[unit] = std::any_of(fault.change.begin(), fault.change.end(), is_at) ||
                  std::any_of(fault.scaffold.begin(), fault.scaffold.end(), is_at);
    }
    return units_.shapes(set);
  }

 private:
  bool draws(const Shapes &shapes, const host::PointVerdict &answer) {
    const auto reduced = element_.transaction(places_.running(shapes), places_.candidate(shapes));
    const host::Verdict verdict = element_.judge(*reduced);
    return std::any_of(verdict.points.begin(), verdict.points.end(),
                       [&answer](const host::PointVerdict &point) { return diagnosis::is_same_answer(point, answer); });
  }

  JudgedElement &element_ = JudgedElement::instance();
  std::unique_ptr<element::Transaction> transaction_;
  Places places_{*transaction_};
  ChangeUnits units_{places_};
};

/// Entries, and leafs that an entry can be without, of both configurations together.
std::size_t entries_and_leafs(const Fault &fault) {
  const auto both = JudgedElement::instance().transaction(fault.smallest.running, fault.smallest.candidate);
  const Places places(*both);
  return ConfigurationItems(places, Shapes(places.size(), diagnosis::Shape::commit)).size();
}

Lines drawn_lines(std::size_t most) {
  Lines lines = *drawn_configuration();
  if (lines.size() > most) lines.resize(most);
  return lines;
}

bool is_accepted(const Lines &running) {
  JudgedElement &element = JudgedElement::instance();
  const auto anew = element.transaction(element::Tree(test_schema()), tree_of(running));
  return element.judge(*anew).decision == host::Decision::accepted;
}

// What is in force is accepted: of a fault that the running configuration has and the commit mends, a smaller part may
// draw the same words, which the search passes over.
RC_GTEST_PROP(SmallestProperty, NoSmallerPartAndNoSmallerConfigurationDrawsTheMessage, ()) {
  const Lines running = drawn_lines(4);
  Lines candidate = drawn_lines(4);
  candidate.insert(candidate.end(), running.begin(), running.begin() + static_cast<std::ptrdiff_t>(running.size() / 2));
  Exhaustive commit(running, candidate);
  RC_PRE(commit.units() <= kMost && is_accepted(running));
  const diagnosis::Diagnosis found = commit.diagnose();
  RC_CLASSIFY(!found.faults.empty(), "draws a message");
  for (const Fault &fault : found.faults) {
    RC_ASSERT(fault.complete);
    RC_ASSERT(fault.change.size() + fault.scaffold.size() == commit.smallest_part(fault.verdict));
    const std::size_t smallest = commit.entries_of_smallest_configuration(commit.part_of(fault), fault.verdict);
    if (smallest != 0) RC_ASSERT(entries_and_leafs(fault) == smallest);
  }
}

}  // namespace
