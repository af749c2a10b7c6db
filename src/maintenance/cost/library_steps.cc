#include "maintenance/cost/library_steps.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace cost {
namespace {

constexpr int kDeepestStack = 64;

struct StepRules {
  std::string_view function;
  std::vector<std::string_view> rules;
};

/// The rules whose messages a function sets, or for which alone it reads.
const std::vector<StepRules> &step_rules() {
  static const std::vector<StepRules> steps{
      {"add_committing_pws", {"pw-id-twice"}},
      {"check_interface_name", {"access-interface-unknown"}},
      {"check_service_port_usage", {"service-port-mixed-use"}},
      {"check_untagged_once", {"access-untagged-twice"}},
      {"config_validate_peer_exchange", {"pw-id-moved"}},
      {"config_validate_pw_id_not_assigned", {"pw-id-moved"}},
      {"config_validate_pw_overflow", {"pseudowire-limit"}},
      {"config_validate_select_encap_limit",
       {"encapsulation-interface-range-limit", "encapsulation-range-limit", "encapsulation-vlan-limit"}},
      {"config_validate_vlm", {"member-on-port-based-vpn", "member-on-uplink", "member-same-dot1q"}},
      {"config_validate_vpls_access_encap", {"access-range-at-bridge-domain"}},
      {"config_validate_vpls_access_igs", {"access-igmp-snooping"}},
      {"config_validate_vpls_access_interface_type", {"interface-information", "vpls-service-port-mixed"}},
      {"config_validate_vpls_max_access_interfaces", {"access-interface-limit"}},
      {"config_validate_vpls_pw_id_exchange", {"pw-id-moved"}},
      {"config_validate_vpls_service_port_config", {"vpls-service-port-without-tls"}},
      {"config_validate_vpn_access_dot1q", {"access-port-based-twice", "access-same-dot1q"}},
      {"config_validate_vpn_access_encapsulation", {"access-encapsulation-mixed"}},
      {"config_validate_vpn_access_sp_bd_mtu", {"service-port-bridge-mtu"}},
      {"config_validate_vpn_access_tls", {"tls-beside-vpws", "tls-port-based-vpls"}},
      {"config_validate_vpn_access_uplink", {"access-on-uplink"}},
      {"config_validate_vpn_access_vlm_port_based", {"access-port-based-static-member"}},
      {"config_validate_vpn_access_vlm_vlan_based", {"access-static-member"}},
      {"config_validate_vpn_overflow", {"vpn-limit"}},
      {"config_validate_vpws_group_name", {"vpws-group-name"}},
      {"config_validate_vpws_pw_id_exchange", {"pw-id-moved"}},
      {"config_validate_vpws_service_port", {"vpws-service-port-name", "vpws-service-port-vlan-action"}},
      {"config_validate_vpws_vpn_name", {"vpws-vpn-name"}},
  };
  return steps;
}

/// "config_validate_vlm" of its symbol.
std::string plain_name(const char *symbol) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(symbol, nullptr, nullptr, &status),
                                                         &std::free);
  const std::string whole = name == nullptr ? symbol : name.get();
  return whole.substr(0, whole.find('('));
}

/// The access driver makes no call of its own and ends with this step, which a compiler therefore may leave off the
/// stack.
std::string without_tail_call(std::string function) {
  return function == "config_validate_vpn_access" ? "config_validate_vpn_access_tls" : function;
}

bool is_step(std::string_view function) {
  return function.starts_with("config_validate_") || function == "validation_keepalive" ||
         !rules_of_function(function).empty();
}

}  // namespace

std::vector<std::string_view> rules_of_function(std::string_view function) {
  for (const StepRules &step : step_rules()) {
    if (step.function == function) return step.rules;
  }
  return {};
}

LibrarySteps::LibrarySteps(const std::filesystem::path &library) {
  void *loaded = dlopen(library.c_str(), RTLD_NOLOAD | RTLD_LAZY);
  Dl_info info{};
  void *entry = loaded == nullptr ? nullptr : dlsym(loaded, "validate");
  if (entry == nullptr || dladdr(entry, &info) == 0) throw std::runtime_error(library.string() + ": is not loaded");
  file_ = info.dli_fname;
  dlclose(loaded);
}

const std::string &LibrarySteps::function_at(void *address) {
  const auto known = functions_.find(address);
  if (known != functions_.end()) return known->second;
  Dl_info info{};
  std::string function;
  if (dladdr(address, &info) != 0 && info.dli_sname != nullptr && file_ == info.dli_fname) {
    function = without_tail_call(plain_name(info.dli_sname));
    if (!is_step(function)) function.clear();
  }
  return functions_.emplace(address, std::move(function)).first->second;
}

const std::string &LibrarySteps::current() {
  static const std::string none = "validate";
  std::array<void *, kDeepestStack> stack{};
  const int depth = backtrace(stack.data(), kDeepestStack);
  for (int i = 0; i < depth; ++i) {
    const std::string &function = function_at(stack[static_cast<std::size_t>(i)]);
    if (!function.empty()) return function;
  }
  return none;
}

}  // namespace cost
