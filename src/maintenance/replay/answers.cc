#include "maintenance/replay/answers.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "maintenance/hooks/agent_values.h"
#include "maintenance/replay/player.h"

namespace replay {

namespace {

confd_value_t owned(const recording::AgentValue &value) {
  confd_value_t result = hooks::borrowed(value);
  if (result.type != C_BUF) return result;
  auto *copy = static_cast<unsigned char *>(std::malloc(value.text.size() + 1));
  if (copy == nullptr) throw std::bad_alloc();
  std::memcpy(copy, value.text.c_str(), value.text.size() + 1);
  result.val.buf.ptr = copy;
  return result;
}

}  // namespace

hooks::Addresses answers() {
  hooks::Addresses addresses{};
  add_agent_answers(addresses);
  add_cursor_answers(addresses);
  add_card_answers(addresses);
  return addresses;
}

void *address_of(const recording::Handle &handle) {
  if (handle.kind == recording::HandleKind::none) return nullptr;
  const std::uintptr_t address = (std::uintptr_t{static_cast<unsigned>(handle.kind)} << 40) + (handle.number << 8);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a number in the form of a pointer, which nobody follows
  return reinterpret_cast<void *>(address);
}

void write_element(const std::vector<recording::AgentValue> &element, confd_value_t (&values)[MAXKEYLEN]) {
  const std::size_t count = std::min<std::size_t>(element.size(), MAXKEYLEN);
  for (std::size_t i = 0; i < count; ++i) values[i] = hooks::borrowed(element[i]);
  const bool is_name = count > 0 && values[0].type == C_XMLTAG;
  if (!is_name && count < MAXKEYLEN) values[count].type = C_NOEXISTS;
}

void Outputs::take_owned(confd_value_t *values, long count) {
  for (long i = 0; next_ < call_.outputs.size(); ++i, ++next_) {
    if (i >= count) fail();
    const recording::Item &output = call_.outputs[next_];
    if (std::holds_alternative<recording::Null>(output)) continue;
    const auto *value = std::get_if<recording::AgentValue>(&output);
    if (value == nullptr) fail();
    values[i] = owned(*value);
  }
}

void Outputs::fail() const { player().fail_at(call_); }

int result_of(const recording::Call &call) {
  if (!call.result) player().fail_at(call);
  return static_cast<int>(*call.result);
}

}  // namespace replay
