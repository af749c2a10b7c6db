// The library that ships in a process that has functions of the same names.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "host/run/commit.h"
#include "tests/host/served_element.h"
#include "tests/support/build_under_test.h"

namespace {

constexpr const char *kPort = "gigabit-ethernet-1/1/1";

element::Profile card() {
  element::CardLimits limits;
  limits.vpn_max = 1000;
  limits.access_ports = 1000;
  return {limits, {{kPort, 1001, 1}}};
}

void attach(element::Tree &tree, const std::string &vpn) {
  const std::string bridge_domain = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{" + vpn + "}/bridge-domain";
  tree.put(bridge_domain + "/dot1q", std::uint16_t{100});
  tree.put(bridge_domain + "/access-interface{" + kPort + "}");
}

/// Prints what the library answers to a second VPN on a VLAN, beside functions that would answer something else.
[[noreturn]] void decide_beside_same_names() {
  if (dlopen(same_names_file().c_str(), RTLD_NOW | RTLD_GLOBAL) == nullptr) std::fprintf(stderr, "%s", dlerror());
  element::Tree running{host_test::schema()};
  element::Tree candidate{host_test::schema()};
  attach(running, "V");
  attach(candidate, "V");
  attach(candidate, "W");

  const element::Profile profile = card();
  host::HostSession seam(profile);
  const host::Plugin plugin(plugin_file());
  const auto transaction = element::make_transaction(running, candidate, profile);
  const host::Verdict verdict = host::validate_commit(plugin, seam, *transaction);
  std::fprintf(stderr, "%s", verdict.points.empty() ? "nothing" : verdict.points.back().text.c_str());
  std::exit(0);
}

// In a process of its own, for the first library of a name stays the first.
TEST(SameNamesDeathTest, the_library_calls_its_own_functions) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(decide_beside_same_names(), testing::ExitedWithCode(0),
              "^vpls-group G vpn W and vpls-group G vpn V must not be configured with the same dot1q on interface "
              "gigabit-ethernet-1/1/1$");
}

}  // namespace
