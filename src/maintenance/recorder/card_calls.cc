// The card's feature model and the interface identifier manager.

#include "fm.h"
#include "limid.h"
#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"

namespace recorder {

namespace {

using recording::Function;

int init() {
  RecordedCall call(Function::fm_init);
  const int result = original<decltype(fm_init)>(Function::fm_init)();
  call.answered(result);
  call.done();
  tape().limits().note(Function::fm_init, result, nullptr);
  return result;
}

int local_slot(fm_slot_t *slot) {
  RecordedCall call(Function::fm_local_slot);
  const int result = original<decltype(fm_local_slot)>(Function::fm_local_slot)(slot);
  call.answered(result);
  if (result == 0) call.outputs(slot->shelf, slot->slot);
  call.done();
  tape().limits().note(Function::fm_local_slot, result, result == 0 ? slot : nullptr);
  return result;
}

template <Function kFunction>
int scalar(const fm_slot_t *slot, uint32_t *value) {
  RecordedCall call(kFunction, slot->shelf, slot->slot);
  const int result = original<int(const fm_slot_t *, uint32_t *)>(kFunction)(slot, value);
  call.answered(result);
  if (result == 0) call.outputs(*value);
  call.done();
  tape().limits().note(kFunction, *slot, result, result == 0 ? value : nullptr);
  return result;
}

/// A conversion from one way to name an interface to another, which is written where there is one.
template <Function kFunction, typename From, typename To>
int converted(From from, To *to) {
  RecordedCall call(kFunction, from);
  const int result = original<int(From, To *)>(kFunction)(from, to);
  call.answered(result);
  if (result == 0) call.outputs(*to);
  call.done();
  return result;
}

int name_of(limid_t limid, char *name, size_t len) {
  RecordedCall call(Function::limid_to_intfname, limid, static_cast<std::uint64_t>(len));
  const int result = original<decltype(limid_to_intfname)>(Function::limid_to_intfname)(limid, name, len);
  call.answered(result);
  if (result == 0) call.outputs(static_cast<const char *>(name));
  call.done();
  return result;
}

bool is_interface(const char *name) {
  RecordedCall call(Function::valid_intfname, name);
  const bool result = original<decltype(valid_intfname)>(Function::valid_intfname)(name);
  call.answered(result ? 1 : 0);
  call.done();
  return result;
}

template <Function kFunction>
void add_scalar(hooks::Addresses &replacements) {
  add(replacements, kFunction, scalar<kFunction>);
}

}  // namespace

void add_card(hooks::Addresses &replacements) {
  add(replacements, Function::fm_init, init);
  add(replacements, Function::fm_local_slot, local_slot);
  add_scalar<Function::fm_scalar_card_hal_vpn_vpn_max_limit>(replacements);
  add_scalar<Function::fm_scalar_card_vpn_mgr_access_ports>(replacements);
  add_scalar<Function::fm_scalar_card_selective_encapsulation_max_vlan_entries>(replacements);
  add_scalar<Function::fm_scalar_card_selective_encapsulation_max_vlan_ranges>(replacements);
  add(replacements, Function::limid_from_intfname, converted<Function::limid_from_intfname, const char *, limid_t>);
  add(replacements, Function::limid_from_ifindex, converted<Function::limid_from_ifindex, int32_t, limid_t>);
  add(replacements, Function::limid_to_ifindex, converted<Function::limid_to_ifindex, limid_t, int32_t>);
  add(replacements, Function::limid_to_intfname, name_of);
  add(replacements, Function::valid_intfname, is_interface);
}

}  // namespace recorder
