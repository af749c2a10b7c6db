#ifndef TESTS_HEADROOM_LIMITS_CASES_H
#define TESTS_HEADROOM_LIMITS_CASES_H

#include <functional>
#include <string>
#include <vector>

#include "tests/headroom/network.h"

namespace headroom_test {

/// A commit on a card, and what is left of every limit.
struct Case {
  std::string name;
  Json card;
  std::function<void(Network &)> running;
  std::function<void(Network &)> candidate;
  std::vector<std::string> rows;
};

const std::vector<Case> &limits_cases();

}  // namespace headroom_test

#endif
