#ifndef MAINTENANCE_TRANSCRIPT_PSEUDONYMS_H
#define MAINTENANCE_TRANSCRIPT_PSEUDONYMS_H

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace transcript {

/// Other names for names. A character is replaced by one of its kind - capital, small letter, digit; others stay - that
/// depends on what stands before it in the name alone, and so that names keep their order: each of them compares with
/// each other, and with what stands around it in a path, as before.
class Pseudonyms {
 public:
  /// The names of `kept` stay as they are; the others keep their order among these, too.
  Pseudonyms(const std::set<std::string> &names, const std::set<std::string> &kept);

  /// The text with every name in it replaced. A name is found where it is the whole text or stands between characters
  /// that names are not made of; the longest one that fits counts.
  std::string in_text(std::string_view text) const;

  /// The same of a path, where names stand in braces alone. With `is_format`, a percent sign of a name is doubled.
  std::string in_path(std::string_view path, bool is_format) const;

 private:
  using Replacements = std::map<std::string, std::string, std::less<>>;

  static std::string replaced(std::string_view text, const Replacements &replacements);

  Replacements replacements_;
  Replacements in_format_;  ///< with percent signs doubled
};

}  // namespace transcript

#endif
