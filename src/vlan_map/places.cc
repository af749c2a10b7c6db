#include "vlan_map/places.h"

#include <filesystem>
#include <string>
#include <unordered_map>
#include <utility>

#include "element/input/source_tree.h"

namespace vlan_map {
namespace {

using report::FilePlace;

/// The lines of all nodes of a configuration, in all files that it was made of, by path.
class LineIndex {
 public:
  LineIndex(const std::filesystem::path &file, const element::ConfigurationSource &source) {
    add(file, source.lines);
    for (const element::FileLines &further : source.further) add(further.file, further.lines);
  }

  std::optional<FilePlace> place_of(const std::string &path) const {
    for (const auto &[file, lines] : files_) {
      const auto line = lines.find(path);
      if (line != lines.end()) return FilePlace{file, line->second};
    }
    return std::nullopt;
  }

 private:
  void add(const std::filesystem::path &file, const element::SourceLines &lines) {
    files_.emplace_back(file.string(), element::lines_by_path(lines.tree()));
  }

  std::vector<std::pair<std::string, std::unordered_map<std::string, std::size_t>>> files_;
};

bool is_in_candidate(const Claim &claim) {
  return claim.status == ChangeStatus::added || claim.status == ChangeStatus::changed;
}

}  // namespace

void find_places(std::vector<Port> &ports, const report::InputFiles &files, const report::InputSources &sources) {
  const LineIndex running(files.running, sources.running);
  const LineIndex candidate(files.candidate, sources.candidate);
  for (Port &port : ports) {
    for (Claim &claim : port.claims) {
      const LineIndex &lines = is_in_candidate(claim) ? candidate : running;
      claim.place = lines.place_of(claim.source);
      if (!claim.place) claim.place = lines.place_of(claim.path);
    }
  }
}

}  // namespace vlan_map
