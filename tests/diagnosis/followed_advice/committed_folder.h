#ifndef TESTS_DIAGNOSIS_FOLLOWED_ADVICE_COMMITTED_FOLDER_H
#define TESTS_DIAGNOSIS_FOLLOWED_ADVICE_COMMITTED_FOLDER_H

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/diagnosis/followed_advice/told_steps.h"
#include "tests/diagnosis/merged_entries.h"

namespace followed {

/// A commit in a folder of its own, which is gone with the object, decided by the program.
class CommittedFolder {
 public:
  CommittedFolder(const std::string &element, const brute_force::Configurations &commit);
  ~CommittedFolder();
  CommittedFolder(const CommittedFolder &) = delete;
  CommittedFolder &operator=(const CommittedFolder &) = delete;

  /// With all findings, however long the search for them takes.
  nlohmann::json verdict() const;
  std::string text() const;

 private:
  std::string check(const std::string &format) const;

  std::filesystem::path directory_;
};

/// The commit with each node of the steps as it is in the running configuration: gone, there with all below it, or with
/// its value.
brute_force::Configurations after(const brute_force::Configurations &commit, const Steps &steps);

}  // namespace followed

#endif
