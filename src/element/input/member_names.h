#ifndef ELEMENT_INPUT_MEMBER_NAMES_H
#define ELEMENT_INPUT_MEMBER_NAMES_H

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace element {

/// The names of the members in the JSON objects that are open, none of which may be given twice.
class MemberNames {
 public:
  /// Begins an object, or an array, which has no names.
  void open() { open_.emplace_back(); }
  void close() { open_.pop_back(); }

  /// Takes the name of a member of the object that was opened last. Throws InputError, which names `file` and both
  /// lines, where it has one of this name.
  void add(std::string_view name, std::size_t line, const std::string &file);

 private:
  std::vector<std::map<std::string, std::size_t>> open_;  ///< lines of the names
};

}  // namespace element

#endif
