#ifndef MAINTENANCE_SHRINKING_SHRINK_H
#define MAINTENANCE_SHRINKING_SHRINK_H

#include <cstddef>
#include <functional>

#include "maintenance/commits/commit.h"

namespace maintenance {

/// Whether a commit still has the property that shrinking keeps, as a message of the library.
using Reproduces = std::function<bool(const Commit &)>;

struct ShrunkCommit {
  Commit commit;
  std::size_t nodes_before = 0;  ///< list entries, leafs and other operator's nodes of both configurations together
  std::size_t nodes_after = 0;
  std::size_t questions = 0;  ///< calls of Reproduces
  bool is_complete = true;    ///< false: the questions were used up
};

inline constexpr std::size_t kMostQuestions = 20'000;

/// A commit that reproduces, of which no node can be left out, no change be taken back or made before the commit, and
/// no interface of the element that none of its nodes names be left out: ddmin, level by level from the top of the
/// configurations down, again and again until nothing goes. Names that need not be as they are become short ones. The
/// card stays. Precondition: the commit reproduces. Where the questions are used up, the smallest commit so far.
ShrunkCommit shrink(const Commit &commit, const Reproduces &reproduces, std::size_t most_questions = kMostQuestions);

}  // namespace maintenance

#endif
