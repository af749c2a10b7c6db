#include "diagnosis/split_search.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace diagnosis {
namespace {

/// How much a stage does before the last step: what is taken away for a time counts first, then all that is done.
std::pair<std::ptrdiff_t, std::ptrdiff_t> cost(const Stage &stage) {
  return {std::count(stage.begin(), stage.end(), PartState::absent),
          std::ssize(stage) - std::count(stage.begin(), stage.end(), PartState::before)};
}

void put_in_order(std::vector<Stage> &stages) {
  std::sort(stages.begin(), stages.end());
  stages.erase(std::unique(stages.begin(), stages.end()), stages.end());
  std::stable_sort(stages.begin(), stages.end(), [](const Stage &a, const Stage &b) { return cost(a) < cost(b); });
}

}  // namespace

SplitSearch::SplitSearch(const Stages &stages, const RevertibleChanges &changes, StepOracle &oracle)
    : stages_(stages), changes_(changes), oracle_(oracle) {}

Steps SplitSearch::find_one_step() {
  Steps steps{stages_.last()};
  return is_plan(steps) ? steps : Steps{};
}

Steps SplitSearch::find_by_status() {
  Steps steps = find_through(stages_by_status());
  defer_parts(steps);
  return steps;
}

Steps SplitSearch::find_among(const NumberSet &parts) {
  Steps steps = find_through(stages_among(parts));
  defer_parts(steps);
  return steps;
}

std::vector<Stage> SplitSearch::stages_by_status() const {
  std::vector<Stage> stages;
  for (const PartState added : {PartState::before, PartState::after}) {
    for (const PartState removed : {PartState::before, PartState::after}) {
      for (const PartState changed : {PartState::before, PartState::absent, PartState::after}) {
        stages.push_back(stages_.by_status(added, changed, removed));
      }
    }
  }
  put_in_order(stages);
  return stages;
}

std::vector<Stage> SplitSearch::stages_among(const NumberSet &parts) const {
  std::vector<Stage> stages;
  for (const Stage &others : {stages_.first(), stages_.last()}) {
    std::vector<Stage> some{others};
    for (const std::uint32_t part : parts) {
      std::vector<Stage> more;
      for (const Stage &stage : some) {
        for (const PartState state : {PartState::before, PartState::absent, PartState::after}) {
          if (state == PartState::absent && !stages_.can_be_absent(part)) continue;
          more.push_back(stage);
          more.back()[part] = state;
        }
      }
      some = std::move(more);
    }
    for (Stage &stage : some) stages_.close(stage);
    stages.insert(stages.end(), some.begin(), some.end());
  }
  put_in_order(stages);
  return stages;
}

Steps SplitSearch::find_through(const std::vector<Stage> &stages) {
  for (const Stage &stage : stages) {
    Steps steps{stage, stages_.last()};
    if (is_plan(steps)) return steps;
    if (oracle_.has_ended()) return {};
  }
  return find_three_steps(stages);
}

Steps SplitSearch::find_three_steps(const std::vector<Stage> &stages) {
  for (const Stage &second : stages) {
    if (!oracle_.accepts(second, stages_.last())) continue;
    for (const Stage &first : stages) {
      Steps steps{first, second, stages_.last()};
      if (is_plan(steps)) return steps;
      if (oracle_.has_ended()) return {};
    }
  }
  return {};
}

bool SplitSearch::is_plan(const Steps &steps) {
  Stage from = stages_.first();
  return std::all_of(steps.begin(), steps.end(),
                     [&](const Stage &to) { return oracle_.accepts(std::exchange(from, to), to); });
}

void SplitSearch::defer_parts(Steps &steps) {
  for (std::size_t step = 0; step + 1 < steps.size(); ++step) defer_parts(steps, step);
}

// Ddmin over the parts that the step touches, in pieces that are halved as long as they hold more than one.
void SplitSearch::defer_parts(Steps &steps, std::size_t step) {
  const Stage earlier = step == 0 ? stages_.first() : steps[step - 1];
  const auto put = [&](std::size_t begin, std::size_t end, bool is_deferred) {
    Steps changed = steps;
    Stage &stage = changed[step];
    for (std::size_t part = begin; part < end; ++part) {
      if (is_deferred) stage[part] = earlier[part];
      if (!is_deferred && stage[part] == PartState::absent) stage[part] = PartState::after;
    }
    stages_.close(stage);
    if (stage == steps[step] || !is_plan(changed)) return;
    steps = std::move(changed);
  };
  for (std::size_t size = changes_.size(); size > 0; size /= 2) {
    for (std::size_t begin = 0; begin < changes_.size(); begin += size) {
      const std::size_t end = std::min<std::size_t>(begin + size, changes_.size());
      put(begin, end, true);
      put(begin, end, false);
    }
  }
}

}  // namespace diagnosis
