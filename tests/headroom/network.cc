#include "tests/headroom/network.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "build_paths.h"
#include "tests/support/process.h"

namespace headroom_test {
namespace {

Json &entry(Json &list, const char *key, const Json &value) {
  const auto place = std::find_if(list.begin(), list.end(), [&](const Json &item) { return item.at(key) == value; });
  if (place != list.end()) return *place;
  list.push_back({{key, value}});
  return list.back();
}

std::string address(int number) {
  return "10.1." + std::to_string(number / 250) + "." + std::to_string(number % 250 + 1);
}

std::filesystem::path fresh_directory() {
  std::string name = (std::filesystem::temp_directory_path() / "vpnval-headroom-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
  return name;
}

}  // namespace

Json &Network::vpls(const std::string &name) { return entry(vpls_vpns_, "name", name); }

Json &Network::vpws(const std::string &name) { return entry(vpws_vpns_, "name", name); }

void Network::add_neighbor_somewhere(int number) {
  if (vpws_vpns_.empty() && !vpls_vpns_.empty()) {
    add_neighbor(vpls_vpns_.back(), number);
  } else {
    add_vpws_neighbor(vpws_vpns_.empty() ? vpws("north") : vpws_vpns_.back(), number);
  }
}

Json &Network::port_with_ranges(const std::string &port) {
  for (Json &vpn : vpls_vpns_) {
    if (!vpn.contains("bridge-domain") || !bridge_domain(vpn).contains("access-interface")) continue;
    for (Json &present : bridge_domain(vpn)["access-interface"]) {
      const bool has_ranges = present.contains("encapsulation") && present["encapsulation"].contains("dot1q-range");
      if (present["name"] == port && has_ranges) return present;
    }
  }
  if (vpws_vpns_.empty() && !vpls_vpns_.empty() && vpls_vpns_[0]["name"] == "tunnels") {
    return vpls_port(vpls("tunnels"), port);
  }
  return vpws_port(vpws("north"), port);
}

void Network::member(int vlan, const std::string &port) { entry(entry(vlans_, "id", vlan)["interface"], "name", port); }

std::string Network::text() const {
  Json l2vpn = Json::object();
  if (!vpls_vpns_.empty()) l2vpn["mpls-l2vpn-vpls:vpls-group"] = {{{"name", "campus"}, {"vpn", vpls_vpns_}}};
  if (!vpws_vpns_.empty()) l2vpn["vpws-group"] = {{{"name", "metro"}, {"vpn", vpws_vpns_}}};
  Json all = {{"mpls:mpls", {{"l2-vpn:l2vpn-config", {{"l2vpn", l2vpn}}}}}};
  if (!vlans_.empty()) all["base:config"]["vlan"] = vlans_;
  return all.dump();
}

Json &bridge_domain(Json &vpls) { return vpls["bridge-domain"]; }

Json &vpls_port(Json &vpls, const std::string &port) {
  return entry(bridge_domain(vpls)["access-interface"], "name", port);
}

Json &vpws_port(Json &vpws, const std::string &port) { return entry(vpws["access-interface"], "name", port); }

void add_vlans(Json &access_interface, int first, int count) {
  Json &ranges = access_interface["encapsulation"]["dot1q-range"];
  for (int vlan = first; vlan < first + count; ++vlan) ranges.push_back({{"min", vlan}, {"max", vlan}});
}

void add_ranges(Json &access_interface, int first, int count) {
  Json &ranges = access_interface["encapsulation"]["dot1q-range"];
  for (int i = 0; i < count; ++i) ranges.push_back({{"min", first + 2 * i}, {"max", first + 2 * i + 1}});
}

void add_neighbor(Json &vpls, int number) { add_vpws_neighbor(vpls["vfi"], number); }

void add_vpws_neighbor(Json &vpws, int number) {
  vpws["neighbor"].push_back({{"address", address(number)}, {"pw-id", number}});
}

std::string ge(int number) { return "ge-" + std::to_string(number); }

std::string service_port(int number) { return "service-port-" + std::to_string(number); }

std::string element_with(const Json &card) {
  Json interfaces = Json::array();
  const auto add = [&interfaces](const std::string &name) {
    const std::size_t id = interfaces.size() + 1;
    interfaces.push_back({{"name", name}, {"logical-id", id}, {"ifindex", 1000 + id}});
  };
  for (int number = 1; number <= 60; ++number) add(ge(number));
  for (int number = 1; number <= 9; ++number) add(service_port(number));
  return Json{{"card", card}, {"interfaces", interfaces}}.dump();
}

Message rejection(const Json &points, const std::string &point) {
  for (const Json &answer : points) {
    const bool is_meant = point.empty() || answer.at("name") == point;
    if (is_meant && answer.at("verdict") == "rejected") return answer.at("message").get<std::string>();
  }
  return std::nullopt;
}

Commit::Commit(const Json &card, const Network &running, const Network &candidate) : directory_(fresh_directory()) {
  write("element.json", element_with(card));
  write("running.json", running.text());
  write("candidate.json", candidate.text());
}

Commit::~Commit() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

Json Commit::headroom() const { return run("headroom", "candidate.json"); }

Json Commit::points(const Network &candidate) const {
  write("other.json", candidate.text());
  return run("check --budget 0 --all", "other.json").at("points");
}

Json Commit::run(const std::string &command, const std::string &candidate) const {
  const std::string directory = directory_.string();
  const ProcessResult result = run_process(VPNVAL_FILE " " + command + " --format json " + directory + " --candidate " +
                                           directory + "/" + candidate + " 2>" + directory + "/err");
  if (result.status > 1 || result.status < 0) {
    std::ifstream err(directory_ / "err");
    ADD_FAILURE() << command << " ended with " << result.status << ": " << err.rdbuf();
  }
  return Json::parse(result.output);
}

void Commit::write(const std::string &name, const std::string &text) const { std::ofstream(directory_ / name) << text; }

}  // namespace headroom_test
