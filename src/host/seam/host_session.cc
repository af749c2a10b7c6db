#include "host/seam/host_session.h"

#include <stdexcept>

#include "host/seam/session_state.h"

namespace host {

namespace {

constexpr int kMaapiSocket = 7;
constexpr int kTransactionHandle = 42;

constexpr std::array<std::string_view, seam_function_count> kNames{
    "confd_free_value",
    "confd_pp_kpath",
    "confd_trans_seterr",
    "confd_data_set_timeout",
    "maapi_num_instances",
    "maapi_exists",
    "maapi_init_cursor",
    "maapi_get_next",
    "maapi_find_next",
    "maapi_destroy_cursor",
    "maapi_get_elem",
    "maapi_get_u_int32_elem",
    "maapi_get_enum_value_elem",
    "maapi_get_object",
    "maapi_get_objects",
    "maapi_keypath_diff_iterate",
    "cdb_num_instances",
    "cdb_get_objects",
    "qnconfd_maapi_socket_get",
    "qnconfd_instance_get",
    "cdb_session_start",
    "cdb_session_end",
    "qnmw_trace_register_category",
    "zlog",
    "fm_init",
    "fm_local_slot",
    "fm_scalar_card_hal_vpn_vpn_max_limit",
    "fm_scalar_card_vpn_mgr_access_ports",
    "fm_scalar_card_selective_encapsulation_max_vlan_entries",
    "fm_scalar_card_selective_encapsulation_max_vlan_ranges",
    "limid_from_intfname",
    "limid_to_intfname",
    "limid_from_ifindex",
    "limid_to_ifindex",
    "valid_intfname",
};

HostSession *active_seam = nullptr;

}  // namespace

std::string_view name(SeamFunction function) { return kNames.at(static_cast<std::size_t>(function)); }

HostSession::HostSession(const element::Profile &profile)
    : profile_(&profile), state_(std::make_unique<SessionState>()) {
  if (active_seam != nullptr) throw std::logic_error("an element is already behind the platform's functions");
  active_seam = this;
}

HostSession::~HostSession() { active_seam = nullptr; }

HostSession *HostSession::active() { return active_seam; }

void HostSession::serve(const element::Transaction *transaction) {
  state_->cursors.close_all();
  state_->hints.clear();
  state_->error_texts.clear();
  transaction_ = transaction;
}

int HostSession::maapi_socket() const { return kMaapiSocket; }

int HostSession::transaction_handle() const { return kTransactionHandle; }

void *HostSession::middleware() { return this; }

bool HostSession::enter(SeamFunction function) {
  if (on_call) on_call(function);
  const std::uint64_t call = ++statistics.calls[static_cast<std::size_t>(function)];
  if (function != injected_failure.function || injected_failure.nth == 0) return false;
  return call == injected_failure.nth || (injected_failure.and_all_later && call > injected_failure.nth);
}

}  // namespace host
