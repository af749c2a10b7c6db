#include "maintenance/reconstruction/interfaces.h"

namespace reconstruction {

Interfaces::Interfaces(const Facts &facts) : unknown_(facts.unknown_interfaces) {
  for (const auto &[id, ifindex] : facts.ifindexes) {
    ids_.insert(id);
    by_ifindex_[ifindex];
  }
  for (const auto &[name, id] : facts.logical_ids) ids_.insert(id);
  for (const auto &[name, id] : facts.logical_ids) {
    const auto known = facts.ifindexes.find(id);
    const std::int32_t ifindex = known == facts.ifindexes.end() ? new_ifindex() : known->second;
    by_name_[name] = {id, ifindex};
    by_ifindex_[ifindex] = name;
  }
  for (auto &[ifindex, name] : by_ifindex_) {
    if (!name.empty()) continue;
    name = new_name();
    by_name_[name] = {new_id(), ifindex};
  }
  for (const std::string &name : facts.interfaces) add(name);
}

const std::string &Interfaces::name_of(std::int32_t ifindex) {
  std::string &name = by_ifindex_[ifindex];
  if (name.empty()) {
    name = new_name();
    by_name_[name] = {new_id(), ifindex};
  }
  return name;
}

void Interfaces::add(const std::string &name) {
  if (by_name_.count(name) != 0 || unknown_.count(name) != 0) return;
  const std::int32_t ifindex = new_ifindex();
  by_name_[name] = {new_id(), ifindex};
  by_ifindex_[ifindex] = name;
}

std::string Interfaces::new_name() {
  std::size_t number = 1;
  std::string name;
  do {
    name = "unknown-port-" + std::to_string(number++);
  } while (by_name_.count(name) != 0);
  return name;
}

std::uint32_t Interfaces::new_id() {
  std::uint32_t id = 1;
  while (ids_.count(id) != 0) ++id;
  ids_.insert(id);
  return id;
}

std::int32_t Interfaces::new_ifindex() {
  std::int32_t ifindex = 1;
  while (by_ifindex_.count(ifindex) != 0) ++ifindex;
  return ifindex;
}

std::shared_ptr<const element::Profile> Interfaces::profile(const element::CardLimits &card) const {
  std::vector<element::Interface> interfaces;
  for (const auto &[name, identifiers] : by_name_) {
    interfaces.push_back({name, identifiers.first, identifiers.second});
  }
  return std::make_shared<element::Profile>(card, std::move(interfaces));
}

}  // namespace reconstruction
