// What is the profile's fault is told as such, beside what the library says, which is as it ships.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

class ProfileFaults : public testing::Test {
 protected:
  ProfileFaults() {
    folder.write("element.json", R"({"interfaces": [{"name": "ge-1", "logical-id": 1, "ifindex": 1},
{"name": "ge-2", "logical-id": 2, "ifindex": 2}, {"name": "lag-7", "logical-id": 3, "ifindex": 3}]})");
  }

  Outcome check(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"check", folder.path()});
    return run_with_library(options);
  }

  std::string missing(const std::string &limit, const std::string &allowed, const std::string &rule) const {
    return folder.file("element.json") + ": card/" + limit + ": missing, so that the library allows " + allowed +
           " (rule " + rule + "); expected the card's limit\n";
  }

  const CommitFolder folder;
};

TEST_F(ProfileFaults, a_limit_that_is_missing_is_told_beside_the_verdict_where_it_was_asked_for) {
  folder.configure("", vpws_group(vpn("east")));
  // A process of its own, for the library reads some limits once.
  const ProcessResult outcome = run_process(vpnval_file() + " check " + folder.path());
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.output.find("1 rejected\n" + missing("vpn-max", "-1", "vpn-limit") + "decided by "),
            std::string::npos)
      << outcome.output;
  EXPECT_NE(outcome.output.find("Attempt to configure 1 of -1 allowed"), std::string::npos) << outcome.output;
  folder.configure(vpws_group(vpn("east")),
                   vpws_group(vpn("east", R"(, "access-interface": [{"name": "ge-1", "dot1q": 5}])")));
  EXPECT_NE(check().out.find(missing("access-ports", "-1", "access-interface-limit") +
                             missing("selective-encapsulation-vlan-entries", "0", "encapsulation-vlan-limit") +
                             missing("selective-encapsulation-vlan-ranges", "0", "encapsulation-range-limit") +
                             "decided by "),
            std::string::npos)
      << check().out;
}

TEST_F(ProfileFaults, missing_limits_are_in_the_documents_of_one_and_of_many_commits) {
  folder.configure("", vpws_group(vpn("east")));
  const auto limits = nlohmann::json::parse(R"([{"limit": "vpn-max", "rule": "vpn-limit", "allowed": -1}])");
  EXPECT_EQ(nlohmann::json::parse(verdict_in(check({"--format=json"}).out)).at("missing-limits"), limits);
  const ProcessResult many = run_process(vpnval_file() + " check --jobs 1 " + folder.path());
  const ProcessResult github = run_process(vpnval_file() + " check -q --format github " + folder.path());
  EXPECT_NE(github.output.find("card/vpn-max: missing, so that the library allows -1"), std::string::npos)
      << github.output;
  EXPECT_NE(many.output.find(": rejected\n" + missing("vpn-max", "-1", "vpn-limit")), std::string::npos) << many.output;
  folder.write("element.json", R"({"card": {"vpn-max": 8}, "interfaces": []})");
  EXPECT_FALSE(nlohmann::json::parse(verdict_in(check({"--format=json"}).out)).contains("missing-limits"));
}

TEST_F(ProfileFaults, an_interface_that_the_profile_lacks_is_told_with_those_spelled_alike) {
  const auto attached = [](const std::string &name) {
    return vpws_group(vpn("east", R"(, "access-interface": [{"name": ")" + name + R"(", "dot1q": 5}])"));
  };
  folder.configure("", attached("ge-3"));
  folder.write("element.json", R"({"card": {"vpn-max": 8, "access-ports": 8, "selective-encapsulation-vlan-entries": 8,
"selective-encapsulation-vlan-ranges": 8}, "interfaces": [{"name": "ge-1", "logical-id": 1, "ifindex": 1},
{"name": "ge-2", "logical-id": 2, "ifindex": 2}, {"name": "lag-7", "logical-id": 3, "ifindex": 3}]})");
  EXPECT_NE(check().out.find("interface ge-3: added by this commit, not in the profile (near: ge-1, ge-2), dot1q 5 ("),
            std::string::npos)
      << check().out;
  const auto json = nlohmann::json::parse(verdict_in(check({"--format=json"}).out));
  EXPECT_EQ(json.at("findings").at(0).at("parties").at(0).at("not-in-profile"),
            nlohmann::json::parse(R"({"near": ["ge-1", "ge-2"]})"));
  folder.configure("", attached("eth"));
  EXPECT_NE(check().out.find("interface eth: added by this commit, not in the profile, dot1q 5 ("), std::string::npos)
      << check().out;
}

TEST_F(ProfileFaults, a_static_member_that_the_profile_lacks_is_told_with_file_and_line) {
  folder.configure("", "\n" + vlan_member("ge-3"));
  const std::string fault =
      "/config/vlan{100}/interface{ge-3}: not in the profile (near: ge-1, ge-2); expected an "
      "interface of the profile\n";
  EXPECT_EQ(check().err, "vpnval: " + folder.file("candidate.json") + ":2: " + fault);
  EXPECT_EQ(check().status, 65);
  folder.configure("\n\n" + vlan_member("ge-3"), "");
  EXPECT_EQ(check().err, "vpnval: " + folder.file("running.json") + ":3: " + fault);
}

}  // namespace
