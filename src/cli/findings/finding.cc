#include "cli/findings/finding.h"

#include <fmt/format.h>

#include <string_view>

#include "cli/text/path_text.h"

namespace cli {

std::string to_text(const FilePlace &place) {
  return place.line == 0 ? place.file : fmt::format("{}:{}", place.file, place.line);
}

const FilePlace *place_of(const FoundNode &node) {
  const bool is_new = node.standing == "added" || node.standing == "changed";
  const std::optional<FilePlace> &place = is_new ? node.candidate : node.running;
  return place ? &*place : nullptr;
}

std::string title_of(const FoundParty &party) {
  if (party.group.empty()) return party.node.path;
  std::string title = party.group;
  if (!party.vpn.empty()) title += ", vpn " + party.vpn;
  if (!party.interface.empty()) title += ", interface " + party.interface;
  if (party.neighbor.empty()) return title;
  const std::vector<std::string_view> steps = path_steps(party.node.path);
  const bool is_backup = !steps.empty() && steps.back().starts_with("backup-neighbor{");
  return title + (is_backup ? ", backup-neighbor " : ", neighbor ") + party.neighbor;
}

std::string standing_text(const FoundNode &node) {
  if (node.standing == "unchanged") return "in the running configuration";
  return node.standing + " by this commit";
}

}  // namespace cli
