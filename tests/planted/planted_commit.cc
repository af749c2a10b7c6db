#include "tests/planted/planted_commit.h"

#include <algorithm>

#include "tests/planted/background.h"
#include "tests/planted/judged_element.h"

namespace planted {
namespace {

constexpr std::size_t kMostOthers = 4;

bool fits(const PlantKind &kind, const std::vector<std::size_t> &chosen) {
  return std::none_of(chosen.begin(), chosen.end(), [&kind](std::size_t other) {
    const std::string_view rule = plant_kinds()[other].rule;
    return rule == kind.rule || exclude_each_other(rule, kind.rule);
  });
}

/// Places in the table of kinds.
std::vector<std::size_t> draw_kinds(std::string_view rule, Supply &supply) {
  const std::vector<PlantKind> &all = plant_kinds();
  const auto wanted = std::find_if(all.begin(), all.end(), [rule](const PlantKind &kind) { return kind.rule == rule; });
  std::vector<std::size_t> chosen{static_cast<std::size_t>(wanted - all.begin())};
  for (std::size_t more = 1 + supply.number(kMostOthers); more > 0;) {
    const std::size_t kind = supply.number(all.size());
    if (!fits(all[kind], chosen)) continue;
    chosen.push_back(kind);
    --more;
  }
  // What counts all else stands behind it in the table.
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

}  // namespace

PlantedCommit draw_commit(std::string_view rule, std::uint32_t seed) {
  Supply supply(seed);
  Draft draft;
  PlantedCommit commit;
  put_background(draft, supply);
  for (const std::size_t kind : draw_kinds(rule, supply)) {
    commit.faults.push_back(plant_kinds()[kind].plant(draft, supply));
  }
  commit.transaction = JudgedElement::instance().transaction(draft);
  return commit;
}

}  // namespace planted
