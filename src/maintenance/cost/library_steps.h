#ifndef MAINTENANCE_COST_LIBRARY_STEPS_H
#define MAINTENANCE_COST_LIBRARY_STEPS_H

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace cost {

/// The ids of the rules that a function of the library works for; none for one that reads what several rules look at,
/// or that is not known.
std::vector<std::string_view> rules_of_function(std::string_view function);

/// Tells which step of a loaded library made the platform call that is under way, by the return addresses on the stack
/// and the names of the library's functions: the library itself is as it ships. A step is a function that a header of
/// the library declares and that validates or checks something; what it calls to read for it counts as its own.
class LibrarySteps {
 public:
  /// `library` is loaded. Throws std::runtime_error where it is not.
  explicit LibrarySteps(const std::filesystem::path &library);

  /// The innermost step on the stack; "validate" where there is none. To be called within a platform call.
  const std::string &current();

 private:
  const std::string &function_at(void *address);

  std::string file_;
  std::unordered_map<void *, std::string> functions_;  ///< by return address; empty: no step's
};

}  // namespace cost

#endif
