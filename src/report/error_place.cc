#include "report/error_place.h"

#include <charconv>

namespace report {

FilePlace error_place(std::string_view message, const std::vector<std::string> &files) {
  FilePlace place;
  for (const std::string &file : files) {
    const bool is_named = message.starts_with(file) && message.substr(file.size()).starts_with(':');
    if (is_named && file.size() > place.file.size()) place.file = file;
  }
  if (place.file.empty()) return place;
  const std::string_view rest = message.substr(place.file.size() + 1);
  std::from_chars(rest.data(), rest.data() + rest.size(), place.line);
  return place;
}

}  // namespace report
