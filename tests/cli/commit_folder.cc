#include "tests/cli/commit_folder.h"

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "tests/support/build_under_test.h"

namespace {

constexpr const char *profile = R"({"card": {"vpn-max": 128}, "interfaces": [
  {"name": "ge-1", "logical-id": 1, "ifindex": 1001},
  {"name": "ge-2", "logical-id": 2, "ifindex": 1002}]})";

std::filesystem::path fresh_directory() {
  std::string name = (std::filesystem::temp_directory_path() / "vpnval-commit-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
  return name;
}

}  // namespace

CommitFolder::CommitFolder() : directory_(fresh_directory()) {
  write("element.json", profile);
  configure("", "");
}

CommitFolder::~CommitFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

void CommitFolder::write(const std::string &name, const std::string &content) const {
  std::ofstream(directory_ / name) << content;
}

void CommitFolder::remove(const std::string &name) const { std::filesystem::remove(directory_ / name); }

void CommitFolder::configure(const std::string &running, const std::string &candidate) const {
  write("running.json", "{" + running + "}");
  write("candidate.json", "{" + candidate + "}");
}

std::string vpws_group(const std::string &vpns) {
  return R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"vpws-group": [{"name": "metro", "vpn": [)" + vpns +
         "]}]}}}";
}

std::string vpn(const std::string &name, const std::string &content) {
  return R"({"name": ")" + name + "\"" + content + "}";
}

std::string vlan_member(const std::string &interface) {
  return R"("base:config": {"vlan": [{"id": 100, "interface": [{"name": ")" + interface + R"("}]}]})";
}

std::string verdict_in(const std::string &document) {
  return nlohmann::ordered_json::parse(document).at("commits").at(0).at("verdict").dump();
}

cli::Environment still_environment(std::ostream &out, std::ostream &err, const std::filesystem::path &program,
                                   const std::string &plugin) {
  cli::Environment environment{out, err, program, plugin};
  environment.clock = [] { return std::chrono::steady_clock::time_point(); };
  return environment;
}

namespace {

Outcome run_with(const std::string &plugin, const std::vector<std::string> &arguments) {
  std::ostringstream out;
  std::ostringstream err;
  const cli::ExitStatus status = cli::run(arguments, still_environment(out, err, "/nowhere/bin/vpnval", plugin));
  return {static_cast<int>(status), out.str(), err.str()};
}

}  // namespace

Outcome run_with_answers(const std::vector<std::string> &arguments) {
  return run_with(answering_plugin_file(), arguments);
}

Outcome run_with_library(const std::vector<std::string> &arguments) { return run_with(plugin_file(), arguments); }
