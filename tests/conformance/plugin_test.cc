// The library that ships, loaded into the program and standing before each of the hosts.

#include <dlfcn.h>

#include <array>
#include <cstdint>
#include <stdexcept>

#include "tests/conformance/conformance_test.h"
#include "tests/support/build_under_test.h"

namespace conformance {
namespace {

using lib_init_t = std::int32_t (*)(void **state);
using validate_t = std::int32_t (*)(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);

/// The library, which asks the program for the platform's functions.
void *plugin() {
  static void *const library = dlopen(plugin_file().c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return library;
}

template <typename Function>
Function entry_point(const char *name) {
  return reinterpret_cast<Function>(dlsym(plugin(), name));
}

constexpr const char *kPort = "gigabit-1";
constexpr std::int32_t kIfindex = 1001;
constexpr std::uint32_t kVlan = 100;

class PluginTest : public ConformanceTest, public ::testing::WithParamInterface<const char *> {
 protected:
  PluginTest() {
    stage->set_vpn_max(64);
    stage->set_access_ports(64);
    stage->add_interface(kPort, 11, kIfindex);
    stage->put(kMembers, {u32(1), i32(kVlan), i32(kIfindex)});
  }

  /// The port is attached to a VPN whose group has its name, with the VLAN of which it is a static member.
  void attach_to_vpws(const std::string &name) {
    stage->put("/internal/int-vpws-intf-app", {text(name), text(name), u32(1), text(kPort), u32(kVlan)});
  }

  void attach_to_vpls(const std::string &name) {
    stage->put("/internal/int-sub-vpls-vpn-ac", {text(name), text(name), u32(1), text(kPort)});
    const std::string bridge_domain = "/internal/int-vpls-group{" + name + "}/int-vpls-vpn{" + name + " 1}/int-vpls-bd";
    stage->put_container(bridge_domain, {{"int-vpls-bd-vlan", u32(kVlan)}, {"int-vpls-bd-tls", enum_value(2)}});
    stage->put(bridge_domain + "/int-vpls-ac", {text(kPort)});
  }

  /// The operator adds the port to the VPN in this commit.
  void add_to_vpws(const std::string &name) {
    const std::string vpns = "/mpls/l2vpn-config/l2vpn/vpws-group{" + name + "}/vpn";
    stage->create_entry(vpns + "{" + name + "}/access-interface", {text(kPort)}, {});
  }

  void add_to_vpls(const std::string &name) {
    const std::string vpns = "/mpls/l2vpn-config/l2vpn/vpls-group{" + name + "}/vpn";
    stage->create_entry(vpns + "{" + name + "}/bridge-domain/access-interface", {text(kPort)}, {});
  }

  /// What the library answers at the validation point of access interfaces.
  std::int32_t validate() {
    stage->open();
    void *state = nullptr;
    entry_point<lib_init_t>("lib_init")(&state);
    std::array<char, 16> point{"vpn_access_valp"};
    stage->context().validate_opaque = point.data();
    return entry_point<validate_t>("validate")(&stage->context(), nullptr, nullptr);
  }

  static std::string message_for(const std::string &family, const std::string &name) {
    return family + "-group " + name + " vpn " + name + " interface " + kPort +
           " is already assigned to dot1q vlan 100. It must be configured to another dot1q";
  }
};

// Only a changed attachment is compared with the static members, so a rejection shows that the change was found.
TEST_P(PluginTest, finds_the_change_of_a_vpws_vpn_of_this_name) {
  attach_to_vpws(GetParam());
  add_to_vpws(GetParam());
  EXPECT_EQ(validate(), CONFD_ERR);
  EXPECT_EQ(stage->error(), message_for("vpws", GetParam()));
}

TEST_P(PluginTest, finds_the_change_of_a_vpls_vpn_of_this_name) {
  attach_to_vpls(GetParam());
  add_to_vpls(GetParam());
  EXPECT_EQ(validate(), CONFD_ERR);
  EXPECT_EQ(stage->error(), message_for("vpls", GetParam()));
}

TEST_P(PluginTest, does_not_take_the_change_of_another_name_for_one_of_this_name) {
  attach_to_vpls(GetParam());
  add_to_vpls(std::string(GetParam()) + "%");
  EXPECT_EQ(validate(), CONFD_OK);
}

INSTANTIATE_TEST_SUITE_P(Names, PluginTest, ::testing::Values("north", "%s", "50%", "%n", "%", "%%"));

}  // namespace
}  // namespace conformance
