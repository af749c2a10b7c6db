#include "tests/diagnosis/told_advice.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace brute_force {
namespace {

void add_choices(const std::vector<Part> &parts, const std::vector<diagnosis::ChangePart> &choices, std::size_t enough,
                 std::set<PartSet> &all) {
  for (std::size_t bits = 0; bits < std::size_t{1} << choices.size(); ++bits) {
    if (static_cast<std::size_t>(__builtin_popcountll(bits)) != enough) continue;
    std::vector<diagnosis::ChangePart> chosen;
    for (std::size_t i = 0; i < choices.size(); ++i) {
      if ((bits >> i & 1) != 0) chosen.push_back(choices[i]);
    }
    all.insert(part_set(parts, chosen));
  }
}

}  // namespace

PartSet part_set(const std::vector<Part> &parts_of_commit, const std::vector<diagnosis::ChangePart> &told) {
  PartSet set;
  for (const diagnosis::ChangePart &part : told) {
    const std::string path = to_text(part.path);
    const auto found = std::find_if(parts_of_commit.begin(), parts_of_commit.end(),
                                    [&path](const Part &known) { return known.path == path; });
    if (found == parts_of_commit.end()) throw std::logic_error("told to take back what is no part: " + path);
    set.insert(*found);
  }
  return set;
}

std::set<PartSet> alternatives(const std::vector<Part> &parts_of_commit, const diagnosis::Advice &advice) {
  std::set<PartSet> all;
  for (const diagnosis::CorrectionSet &set : advice.alternatives) all.insert(part_set(parts_of_commit, set));
  if (advice.enough != 0) add_choices(parts_of_commit, advice.choices, advice.enough, all);
  return all;
}

std::string text_of(const PartSet &parts) {
  const std::string signs = " +~-";
  std::string text;
  for (const Part &part : parts) {
    text += fmt::format("{}{}{}", text.empty() ? "" : ", ", signs[static_cast<std::size_t>(part.status)], part.path);
  }
  return text;
}

}  // namespace brute_force
