#include "tests/headroom/network.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "element/output/configuration_writer.h"
#include "l2vpn/edit.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace headroom_test {
namespace {

using l2vpn::Family;

const element::Schema &schema() {
  static const element::Schema model;
  return model;
}

bool is_vpws(const l2vpn::Vpn &vpn) { return vpn.key.family == Family::vpws; }

std::string address(int number) {
  return "10.1." + std::to_string(number / 250) + "." + std::to_string(number % 250 + 1);
}

std::filesystem::path fresh_directory() {
  std::string name = (std::filesystem::temp_directory_path() / "vpnval-headroom-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
  return name;
}

}  // namespace

l2vpn::Vpn &Network::vpls(const std::string &name) { return vpn({Family::vpls, "campus", name}); }

l2vpn::Vpn &Network::vpws(const std::string &name) { return vpn({Family::vpws, "metro", name}); }

void Network::add_neighbor_somewhere(int number) {
  std::vector<l2vpn::Vpn> &vpns = configuration_.vpns;
  const auto vpws = std::find_if(vpns.rbegin(), vpns.rend(), is_vpws);
  if (vpws != vpns.rend()) return add_neighbor(*vpws, number);
  add_neighbor(vpns.empty() ? this->vpws("north") : vpns.back(), number);
}

l2vpn::Attachment &Network::port_with_ranges(const std::string &port) {
  for (l2vpn::Vpn &vpn : configuration_.vpns) {
    if (vpn.key.family != Family::vpls) continue;
    for (l2vpn::Attachment &attachment : vpn.attachments) {
      if (attachment.interface == port && !attachment.ranges.empty()) return attachment;
    }
  }
  const std::vector<l2vpn::Vpn> &vpns = configuration_.vpns;
  const bool has_vpws = std::ranges::any_of(vpns, is_vpws);
  const bool is_for_tunnels = !has_vpws && !vpns.empty() && vpns.front().key.name == "tunnels";
  return port_of(is_for_tunnels ? vpls("tunnels") : vpws("north"), port);
}

void Network::member(std::uint32_t vlan, const std::string &port) {
  configuration_.static_members.push_back({vlan, port});
}

std::string Network::text() const {
  return write_configuration(l2vpn::make_tree(schema(), configuration_), element::InputFormat::xml);
}

l2vpn::Vpn &Network::vpn(const l2vpn::VpnKey &key) {
  std::vector<l2vpn::Vpn> &vpns = configuration_.vpns;
  const auto place = std::ranges::find(vpns, key, &l2vpn::Vpn::key);
  return place != vpns.end() ? *place : vpns.emplace_back(l2vpn::Vpn{key});
}

l2vpn::Attachment &port_of(l2vpn::Vpn &vpn, const std::string &port) {
  const auto place = std::ranges::find(vpn.attachments, port, &l2vpn::Attachment::interface);
  return place != vpn.attachments.end() ? *place : vpn.attachments.emplace_back(l2vpn::Attachment{.interface = port});
}

void add_vlans(l2vpn::Attachment &access_interface, std::uint32_t first, std::uint32_t count) {
  for (std::uint32_t vlan = first; vlan < first + count; ++vlan) access_interface.ranges.push_back({vlan, vlan});
}

void add_ranges(l2vpn::Attachment &access_interface, std::uint32_t first, std::uint32_t count) {
  for (std::uint32_t i = 0; i < count; ++i) access_interface.ranges.push_back({first + 2 * i, first + 2 * i + 1});
}

void add_neighbor(l2vpn::Vpn &vpn, int number) {
  vpn.neighbors.push_back({address(number), static_cast<std::uint32_t>(number)});
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
  write("running.xml", running.text());
  write("candidate.xml", candidate.text());
}

Commit::~Commit() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

Json Commit::headroom() const { return run("headroom", "candidate.xml"); }

Json Commit::points(const Network &candidate) const {
  write("other.xml", candidate.text());
  return run("check --budget 0 --all", "other.xml").at("commits").at(0).at("verdict").at("points");
}

Json Commit::run(const std::string &command, const std::string &candidate) const {
  const std::string directory = directory_.string();
  const ProcessResult result = run_process(vpnval_file() + " " + command + " --format json " + directory +
                                           " --candidate " + directory + "/" + candidate + " 2>" + directory + "/err");
  if (result.status > 1 || result.status < 0) {
    std::ifstream err(directory_ / "err");
    ADD_FAILURE() << command << " ended with " << result.status << ": " << err.rdbuf();
  }
  return Json::parse(result.output);
}

void Commit::write(const std::string &name, const std::string &text) const { std::ofstream(directory_ / name) << text; }

}  // namespace headroom_test
