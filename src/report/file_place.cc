#include "report/file_place.h"

namespace report {

FilePlace place_of(const element::Path &path, const std::filesystem::path &file,
                   const element::ConfigurationSource &source) {
  if (const std::optional<std::size_t> line = source.lines.line_of(path)) return {file.string(), *line};
  for (const element::FileLines &further : source.further) {
    if (const std::optional<std::size_t> line = further.lines.line_of(path)) return {further.file.string(), *line};
  }
  return {file.string(), 0};
}

}  // namespace report
