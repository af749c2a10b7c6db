#include "report/finding.h"

#include <fmt/format.h>

#include <string_view>

#include "report/path_text.h"

namespace report {

std::string to_text(const FilePlace &place) {
  return place.line == 0 ? place.file : fmt::format("{}:{}", place.file, place.line);
}

const FilePlace *place_of(const NodeReport &node) {
  const bool is_new = node.status == ChangeStatus::added || node.status == ChangeStatus::changed ||
                      node.status == ChangeStatus::in_force;
  const std::optional<FilePlace> &place = is_new ? node.candidate : node.running;
  return place ? &*place : nullptr;
}

std::string title_of(const PartyReport &party) {
  if (party.group.empty()) return party.node.path;
  std::string title = party.group;
  if (!party.vpn.empty()) title += ", vpn " + party.vpn;
  if (!party.interface.empty()) title += ", interface " + party.interface;
  if (party.neighbor.empty()) return title;
  const std::vector<std::string_view> steps = path_steps(party.node.path);
  const bool is_backup = !steps.empty() && steps.back().starts_with("backup-neighbor{");
  return title + (is_backup ? ", backup-neighbor " : ", neighbor ") + party.neighbor;
}

std::string status_text(const NodeReport &node) {
  if (node.status == ChangeStatus::in_force) return "in force";
  if (node.status == ChangeStatus::unchanged) return "in the running configuration";
  return fmt::format("{} by this commit", status_name(node.status));
}

std::string_view status_name(ChangeStatus status) {
  switch (status) {
    case ChangeStatus::unchanged:
      return "unchanged";
    case ChangeStatus::added:
      return "added";
    case ChangeStatus::changed:
      return "changed";
    case ChangeStatus::removed:
      return "removed";
    case ChangeStatus::in_force:
      return "in-force";
  }
  return "?";
}

}  // namespace report
