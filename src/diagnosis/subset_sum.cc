#include "diagnosis/subset_sum.h"

#include <map>

namespace diagnosis {
namespace {

/// How a sum is reached: with one more share of this weight, of which so many are used. The sum 0 needs none.
struct Reached {
  std::size_t weight = 0;
  std::size_t used = 0;
  bool is_reached = false;
};

using ByWeight = std::map<std::size_t, NumberSet>;

void add_weight(std::vector<Reached> &sums, std::size_t weight, std::size_t number) {
  for (std::size_t sum = weight; sum < sums.size(); ++sum) {
    const Reached &before = sums[sum - weight];
    const std::size_t used = before.weight == weight ? before.used : 0;
    if (!sums[sum].is_reached && before.is_reached && used < number) sums[sum] = {weight, used + 1, true};
  }
}

NumberSet entries_of_sum(const std::vector<Reached> &sums, std::size_t sum, const ByWeight &by_weight) {
  NumberSet chosen;
  while (sum > 0) {
    chosen.push_back(by_weight.at(sums[sum].weight)[sums[sum].used - 1]);
    sum -= sums[sum].weight;
  }
  normalise(chosen);
  return chosen;
}

}  // namespace

std::optional<NumberSet> subset_of_sum(const std::vector<Share> &shares, std::size_t least, std::size_t most) {
  ByWeight by_weight;
  for (const Share &share : shares) by_weight[share.weight].push_back(share.entry);
  std::vector<Reached> sums(most + 1);
  sums[0].is_reached = true;
  for (const auto &[weight, entries] : by_weight) add_weight(sums, weight, entries.size());
  for (std::size_t sum = least; sum <= most; ++sum) {
    if (sums[sum].is_reached) return entries_of_sum(sums, sum, by_weight);
  }
  return std::nullopt;
}

}  // namespace diagnosis
