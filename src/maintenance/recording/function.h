#ifndef MAINTENANCE_RECORDING_FUNCTION_H
#define MAINTENANCE_RECORDING_FUNCTION_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace recording {

/// The functions whose calls a recording holds: those of the platform, and the system's clock. The numbers stand in
/// files: new functions come last.
enum class Function : std::uint8_t {
  confd_free_value,
  confd_trans_seterr,
  confd_data_set_timeout,
  maapi_num_instances,
  maapi_exists,
  maapi_init_cursor,
  maapi_get_next,
  maapi_find_next,
  maapi_destroy_cursor,
  maapi_get_elem,
  maapi_get_u_int32_elem,
  maapi_get_enum_value_elem,
  maapi_get_object,
  maapi_get_objects,
  maapi_keypath_diff_iterate,
  cdb_num_instances,
  cdb_get_objects,
  qnconfd_maapi_socket_get,
  qnconfd_instance_get,
  cdb_session_start,
  cdb_session_end,
  cdb_session_socket,
  qnmw_trace_register_category,
  zlog,
  fm_init,
  fm_local_slot,
  fm_scalar_card_hal_vpn_vpn_max_limit,
  fm_scalar_card_vpn_mgr_access_ports,
  fm_scalar_card_selective_encapsulation_max_vlan_entries,
  fm_scalar_card_selective_encapsulation_max_vlan_ranges,
  limid_from_intfname,
  limid_to_intfname,
  limid_from_ifindex,
  limid_to_ifindex,
  valid_intfname,
  system_clock_now,
  count
};

inline constexpr std::size_t function_count = static_cast<std::size_t>(Function::count);

/// The function's name as the headers declare it; those of the C++ session class are cdb_session_start, _end and
/// _socket.
std::string_view name(Function function);

std::optional<Function> function_named(std::string_view name);

/// Whether the function belongs to the card's feature model, which the library asks once in a process.
inline constexpr bool is_of_feature_model(Function function) {
  return function >= Function::fm_init && function <= Function::fm_scalar_card_selective_encapsulation_max_vlan_ranges;
}

}  // namespace recording

#endif
