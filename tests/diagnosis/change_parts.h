#ifndef TESTS_DIAGNOSIS_CHANGE_PARTS_H
#define TESTS_DIAGNOSIS_CHANGE_PARTS_H

#include <compare>
#include <set>
#include <string>
#include <vector>

#include "diagnosis/finding.h"
#include "tests/diagnosis/merged_entries.h"

namespace brute_force {

/// A part of the change that can be taken back by itself.
struct Part {
  diagnosis::ChangeStatus status = diagnosis::ChangeStatus::changed;
  std::string path;  ///< an entry, or a leaf of a VPN that stays

  auto operator<=>(const Part &) const = default;
};

using PartSet = std::set<Part>;

/// By path of entries, parents before what they hold.
std::vector<Part> parts_of(const Configurations &commit);

/// The commit with these parts taken back: what was added is gone with all in it, what was removed is there again with
/// all it held, what was changed is as it was. Throws std::logic_error where the commit has no such part.
Configurations taken_back(const Configurations &commit, const PartSet &parts);

/// Whether with each added entry the added entries in it are among them.
bool is_closed(const std::vector<Part> &all, const PartSet &parts);

}  // namespace brute_force

#endif
