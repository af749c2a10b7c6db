#include "element/profile/made_profile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"

namespace element {
namespace {

constexpr std::size_t kMostNamed = 3;

/// Identities of iana-if-type that stand for no port.
constexpr std::array<std::string_view, 7> kTypesOfNoPort{"softwareLoopback", "l2vlan", "l3ipvlan",  "l3forwarder",
                                                         "tunnel",           "mpls",   "mplsTunnel"};

bool is_no_port(std::string_view type) {
  return std::find(kTypesOfNoPort.begin(), kTypesOfNoPort.end(), type) != kTypesOfNoPort.end();
}

using Names = std::vector<std::string>;

std::string count_of(const Names &names) {
  return fmt::format("{} interface{}", names.size(), names.size() == 1 ? "" : "s");
}

/// "a, b, c and 4 more".
std::string some_of(const Names &names) {
  const Names first(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(std::min(names.size(), kMostNamed)));
  const std::string text = one_line(fmt::format("{}", fmt::join(first, ", ")));
  return names.size() <= kMostNamed ? text : fmt::format("{} and {} more", text, names.size() - kMostNamed);
}

class ProfileMaker {
 public:
  void take(const InterfaceFile &file) {
    for (const InterfaceData &interface : file.interfaces) take(interface, file.file);
  }

  MadeProfile make(const CardLimits &card) && {
    number_the_rest();
    std::vector<Interface> interfaces;
    for (const InterfaceData &interface : kept_) {
      interfaces.push_back({interface.name, static_cast<std::uint32_t>(interfaces.size() + 1), *interface.if_index});
    }
    return {Profile(card, std::move(interfaces)), notes(card)};
  }

 private:
  void take(const InterfaceData &interface, const std::string &file) {
    const auto [place, is_new] = places_.emplace(interface.name, all_.size());
    if (is_new) all_.push_back(interface);
    InterfaceData &known = all_[place->second];
    if (known.type.empty()) known.type = interface.type;
    if (!interface.if_index) return;
    const auto [owner, is_free] = owners_.emplace(*interface.if_index, interface.name);
    const bool is_another = known.if_index && *known.if_index != *interface.if_index;
    if (owner->second != interface.name || is_another) {
      const std::string other = is_another ? fmt::format("{} in a file before", *known.if_index)
                                           : fmt::format("that of {} already", one_line(owner->second));
      throw input_fault(
          {file, interface.line},
          fmt::format("if-index {} of interface {} is {}", *interface.if_index, one_line(interface.name), other),
          "one of its own");
    }
    known.if_index = interface.if_index;
  }

  void number_the_rest() {
    std::int32_t next = 1;
    for (InterfaceData &interface : all_) {
      if (!keeps(interface)) continue;
      if (!interface.if_index) {
        while (owners_.count(next) != 0) ++next;
        interface.if_index = next;
        owners_.emplace(next, interface.name);
        numbered_.push_back(interface.name);
      }
      kept_.push_back(interface);
    }
  }

  bool keeps(const InterfaceData &interface) {
    if (interface.name.size() > kLongestInterfaceName) {
      too_long_.push_back(interface.name);
      return false;
    }
    if (is_no_port(interface.type)) {
      left_out_[interface.type].push_back(interface.name);
      return false;
    }
    if (interface.type.empty()) untyped_.push_back(interface.name);
    return true;
  }

  std::vector<std::string> notes(const CardLimits &card) const {
    std::vector<std::string> notes;
    for (const auto &[type, names] : left_out_) {
      notes.push_back(
          fmt::format("left out: {} of type {}, which is no port: {}", count_of(names), type, some_of(names)));
    }
    if (!too_long_.empty()) {
      notes.push_back(fmt::format("left out: {} with a name of more than {} bytes: {}", count_of(too_long_),
                                  kLongestInterfaceName, some_of(too_long_)));
    }
    if (!untyped_.empty()) {
      notes.push_back(
          fmt::format("not known: the type of {}, kept as a port: {}", count_of(untyped_), some_of(untyped_)));
    }
    if (!numbered_.empty()) {
      notes.push_back(
          fmt::format("not known: the ifindex of {}, made up: {}", count_of(numbered_), some_of(numbered_)));
    }
    notes.emplace_back("not known: logical-ids, made up; the library looks at nothing but whether they are the same");
    notes.emplace_back("not known: service ports that the data does not list; add those that a VPN may take");
    std::vector<std::string> missing;
    for (const LimitField &field : kLimitFields) {
      if (!(card.*field.value)) missing.push_back(fmt::format("card/{}", field.name));
    }
    if (!missing.empty()) {
      notes.push_back(
          fmt::format("not known: {}; without them the library refuses what they bound", fmt::join(missing, ", ")));
    }
    return notes;
  }

  std::vector<InterfaceData> all_;
  std::map<std::string, std::size_t> places_;   ///< in `all_`, by name
  std::map<std::int32_t, std::string> owners_;  ///< of each if-index
  std::vector<InterfaceData> kept_;
  std::map<std::string, Names> left_out_;  ///< by type
  Names too_long_;
  Names untyped_;
  Names numbered_;
};

}  // namespace

MadeProfile make_profile(const CardLimits &card, const std::vector<InterfaceFile> &files) {
  ProfileMaker maker;
  std::vector<std::string> names;
  for (const InterfaceFile &file : files) {
    names.push_back(file.file);
    maker.take(file);
  }
  if (std::all_of(files.begin(), files.end(), [](const InterfaceFile &file) { return file.interfaces.empty(); })) {
    throw input_fault({fmt::format("{}", fmt::join(names, ", "))}, "no interface of ietf-interfaces",
                      "operational data of /interfaces");
  }
  return std::move(maker).make(card);
}

}  // namespace element
