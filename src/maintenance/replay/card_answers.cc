// Answers of the card, the middleware, the trace layer and the clock.

#include <algorithm>
#include <chrono>

#include "fm.h"
#include "limid.h"
#include "maintenance/replay/answers.h"
#include "maintenance/replay/player.h"
#include "qnconfd.h"
#include "qnmw_trace.h"

namespace replay {

namespace {

using recording::Call;
using recording::Function;
using recording::Handle;
using recording::HandleKind;

int feature_model_init() { return result_of(player().answer(Function::fm_init)); }

int local_slot(fm_slot_t *slot) {
  const Call &call = player().answer(Function::fm_local_slot);
  if (call.result == 0) {
    Outputs outputs(call);
    slot->shelf = static_cast<uint32_t>(outputs.take<std::uint64_t>());
    slot->slot = static_cast<uint32_t>(outputs.take<std::uint64_t>());
  }
  return result_of(call);
}

template <Function kFunction>
int scalar(const fm_slot_t *slot, uint32_t *value) {
  const Call &call = player().answer(kFunction, slot->shelf, slot->slot);
  if (call.result == 0) *value = static_cast<uint32_t>(Outputs(call).take<std::uint64_t>());
  return result_of(call);
}

template <Function kFunction, typename Wide, typename From, typename To>
int converted(From from, To *to) {
  const Call &call = player().answer(kFunction, from);
  if (call.result == 0) *to = static_cast<To>(Outputs(call).take<Wide>());
  return result_of(call);
}

int name_of(limid_t limid, char *name, size_t len) {
  const Call &call = player().answer(Function::limid_to_intfname, limid, static_cast<std::uint64_t>(len));
  if (call.result == 0) {
    const std::string &text = Outputs(call).take<std::string>();
    if (text.size() >= len) player().fail_at(call);
    *std::copy(text.begin(), text.end(), name) = '\0';
  }
  return result_of(call);
}

bool is_interface(const char *name) { return result_of(player().answer(Function::valid_intfname, name)) != 0; }

Handle known(HandleKind kind, const void *address) { return player().handles().known(kind, address); }

/// A pointer that the platform answered.
void *answered_address(const Call &call) {
  const Handle handle = Outputs(call).take<Handle>();
  void *address = address_of(handle);
  if (address != nullptr) player().handles().known_or_open(handle.kind, address);
  return address;
}

int32_t socket_get(void *middleware) {
  return result_of(player().answer(Function::qnconfd_maapi_socket_get, known(HandleKind::middleware, middleware)));
}

QnConfdInterface *instance_get(void *middleware) {
  const Call &call = player().answer(Function::qnconfd_instance_get, known(HandleKind::middleware, middleware));
  return static_cast<QnConfdInterface *>(answered_address(call));
}

void session_start(void *session, QnConfdInterface *instance, cdb_db_type db, bool flag) {
  const Handle handle = player().handles().open(HandleKind::session, session);
  player().answer(Function::cdb_session_start, handle, known(HandleKind::instance, instance),
                  static_cast<std::int32_t>(db), std::int32_t{flag});
}

void session_end(void *session) { player().answer(Function::cdb_session_end, known(HandleKind::session, session)); }

int session_socket(const void *session) {
  return result_of(player().answer(Function::cdb_session_socket, known(HandleKind::session, session)));
}

zlog_category_t *register_category(const char *name) {
  return static_cast<zlog_category_t *>(
      answered_address(player().answer(Function::qnmw_trace_register_category, name)));
}

void trace(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen, long line,
           int level, const char *format, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, format);
  player().answer(Function::zlog, known(HandleKind::category, category), std::string_view(file, filelen),
                  std::string_view(func, funclen), std::int64_t{line}, level, arguments);
}

std::chrono::system_clock::time_point clock_now() {
  const Call &call = player().answer(Function::system_clock_now);
  if (!call.result) player().fail_at(call);
  const std::chrono::nanoseconds time(*call.result);
  return std::chrono::system_clock::time_point(std::chrono::duration_cast<std::chrono::system_clock::duration>(time));
}

template <Function kFunction>
void add_scalar(hooks::Addresses &addresses) {
  add(addresses, kFunction, scalar<kFunction>);
}

void add_identifiers(hooks::Addresses &addresses) {
  constexpr auto from_name = converted<Function::limid_from_intfname, std::uint64_t, const char *, limid_t>;
  constexpr auto from_index = converted<Function::limid_from_ifindex, std::uint64_t, int32_t, limid_t>;
  constexpr auto to_index = converted<Function::limid_to_ifindex, std::int64_t, limid_t, int32_t>;
  add(addresses, Function::limid_from_intfname, from_name);
  add(addresses, Function::limid_from_ifindex, from_index);
  add(addresses, Function::limid_to_ifindex, to_index);
  add(addresses, Function::limid_to_intfname, name_of);
  add(addresses, Function::valid_intfname, is_interface);
}

}  // namespace

void add_card_answers(hooks::Addresses &addresses) {
  add(addresses, Function::fm_init, feature_model_init);
  add(addresses, Function::fm_local_slot, local_slot);
  add_scalar<Function::fm_scalar_card_hal_vpn_vpn_max_limit>(addresses);
  add_scalar<Function::fm_scalar_card_vpn_mgr_access_ports>(addresses);
  add_scalar<Function::fm_scalar_card_selective_encapsulation_max_vlan_entries>(addresses);
  add_scalar<Function::fm_scalar_card_selective_encapsulation_max_vlan_ranges>(addresses);
  add_identifiers(addresses);
  add(addresses, Function::qnconfd_maapi_socket_get, socket_get);
  add(addresses, Function::qnconfd_instance_get, instance_get);
  add(addresses, Function::cdb_session_start, session_start);
  add(addresses, Function::cdb_session_end, session_end);
  add(addresses, Function::cdb_session_socket, session_socket);
  add(addresses, Function::qnmw_trace_register_category, register_category);
  add(addresses, Function::zlog, trace);
  add(addresses, Function::system_clock_now, clock_now);
}

}  // namespace replay
