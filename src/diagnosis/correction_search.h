#ifndef DIAGNOSIS_CORRECTION_SEARCH_H
#define DIAGNOSIS_CORRECTION_SEARCH_H

#include <functional>

#include "diagnosis/finding.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// What taking parts back does.
enum class Effect {
  repairs,
  none,     ///< it was asked: it does not repair
  unproven  ///< it may repair or not
};

constexpr Effect effect_of(bool repairs) { return repairs ? Effect::repairs : Effect::none; }

/// Sets of parts of one size and rank, in file order.
struct Corrections {
  std::vector<NumberSet> sets;  ///< closed
  std::size_t enough = 0;       ///< a limit: so many of `choices` are enough, whichever
  NumberSet choices;            ///< with the additions in them, each is one thing to choose
  bool is_minimal = false;      ///< no smaller set helps: every one was asked about
  bool has_all = true;          ///< every other set of the same size and rank was asked about
};

/// The smallest closed sets of parts that repair (minimum correction sets), out of those that the `candidates` make.
/// Size counts the parts of the closed set; a set with fewer removed parts ranks first, then one with fewer changed
/// ones. At most `most_asked` sets are asked about.
Corrections find_corrections(const SearchContext &context, const NumberSet &candidates,
                             const std::function<Effect(const NumberSet &)> &effect, std::size_t most_asked);

/// A closed subset of `parts`, which help, that helps and loses its effect without any one of its own parts, as far as
/// at most `most_asked` questions show it. What the commit removed is put back last. The smallest set it need not be.
NumberSet reduced(const SearchContext &context, NumberSet parts, const std::function<bool(const NumberSet &)> &helps,
                  std::size_t most_asked);

/// What to take back, as a user is told.
Advice describe_advice(const SearchContext &context, const Corrections &corrections);

}  // namespace diagnosis

#endif
