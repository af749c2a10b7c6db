#include "tests/diagnosis/seeded_faults/seeded_commit.h"

#include <algorithm>

#include "tests/diagnosis/seeded_faults/background.h"

namespace seeded {
namespace {

constexpr std::size_t kMostOthers = 4;

bool fits(const FaultKind &kind, const std::vector<std::size_t> &chosen) {
  return std::none_of(chosen.begin(), chosen.end(), [&kind](std::size_t other) {
    const std::string_view rule = fault_kinds()[other].rule;
    return rule == kind.rule || exclude_each_other(rule, kind.rule);
  });
}

/// Places in the table of kinds.
std::vector<std::size_t> draw_kinds(std::string_view rule, NamePool &names) {
  const std::vector<FaultKind> &all = fault_kinds();
  const auto wanted = std::find_if(all.begin(), all.end(), [rule](const FaultKind &kind) { return kind.rule == rule; });
  std::vector<std::size_t> chosen{static_cast<std::size_t>(wanted - all.begin())};
  for (std::size_t more = 1 + names.number(kMostOthers); more > 0;) {
    const std::size_t kind = names.number(all.size());
    if (!fits(all[kind], chosen)) continue;
    chosen.push_back(kind);
    --more;
  }
  // What counts all else stands behind it in the table.
  std::sort(chosen.begin(), chosen.end());
  return chosen;
}

}  // namespace

SeededCommit draw_commit(std::string_view rule, std::uint32_t seed, std::size_t clean_vpns) {
  NamePool names(seed);
  Draft draft;
  put_background(draft, names);
  put_clean_vpns(draft, names, clean_vpns);
  std::vector<SeededFault> faults;
  for (const std::size_t kind : draw_kinds(rule, names)) {
    SeededFault fault = fault_kinds()[kind].seed(draft, names);
    faults.insert(faults.end(), fault.besides.begin(), fault.besides.end());
    faults.push_back(std::move(fault));
  }
  return {std::move(faults), {tree_of(draft.running), tree_of(draft.candidate)}};
}

}  // namespace seeded
