#include "tests/diagnosis/told_repairs.h"

#include <stdexcept>

#include "tests/element/print.h"

namespace brute_force {
namespace {

bool stands_at(const std::string &line, const std::string &path) {
  const char next = line.size() > path.size() ? line[path.size()] : '/';
  return line.starts_with(path) && (next == '/' || next == ' ');
}

std::string keys_of(const std::string &value, diagnosis::RepairKind kind) {
  if (kind == diagnosis::RepairKind::interface_name) return value;
  const std::size_t dash = value.find('-');
  return value.substr(0, dash) + " " + value.substr(dash + 1);
}

}  // namespace

RepairedPath repaired_path(const diagnosis::Repair &repair, const std::string &value) {
  const std::string path = to_text(repair.path);
  if (path.back() != '}') return {path, path};
  if (path.starts_with("/config/vlan{")) return {path, "/config/vlan{" + value + path.substr(path.find('}'))};
  return {path, path.substr(0, path.rfind('{')) + "{" + keys_of(value, repair.kind) + "}"};
}

Configurations repaired(const Configurations &commit, const diagnosis::Repair &repair, const std::string &value) {
  const auto [before, after] = repaired_path(repair, value);
  Lines lines = print(commit.candidate);
  std::size_t changed = 0;
  for (std::string &line : lines) {
    if (!stands_at(line, before)) continue;
    line = before == after ? before + " = " + value : after + line.substr(before.size());
    ++changed;
  }
  if (changed == 0) throw std::logic_error("told to change what is not there: " + before);
  return {commit.running, tree_of(lines)};
}

}  // namespace brute_force
