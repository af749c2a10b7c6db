#ifndef DIAGNOSIS_CORRECTION_SEARCH_H
#define DIAGNOSIS_CORRECTION_SEARCH_H

#include <functional>

#include "diagnosis/finding.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Sets of parts of one size and rank, in file order.
struct Corrections {
  std::vector<NumberSet> sets;  ///< closed
  std::size_t enough = 0;       ///< a limit: so many of `choices` are enough, whichever
  NumberSet choices;            ///< with the additions in them, each is one thing to choose
  bool is_minimal = false;      ///< every smaller set was asked about, and every one of a better rank
  bool has_all = true;          ///< every other set of the same size and rank was asked about
};

/// The smallest closed sets of parts for which `helps` is true (minimum correction sets), out of those that the
/// `candidates` make. Size counts the parts of the closed set; a set with fewer removed parts ranks first, then one
/// with fewer changed ones. At most `most_asked` sets are asked about.
Corrections find_corrections(const SearchContext &context, const NumberSet &candidates,
                             const std::function<bool(const NumberSet &)> &helps, std::size_t most_asked);

/// What to take back, as a user is told.
Advice describe_advice(const SearchContext &context, const Corrections &corrections);

}  // namespace diagnosis

#endif
