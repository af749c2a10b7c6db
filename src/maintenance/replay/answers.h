#ifndef MAINTENANCE_REPLAY_ANSWERS_H
#define MAINTENANCE_REPLAY_ANSWERS_H

#include "confd_lib.h"
#include "maintenance/hooks/hooking.h"
#include "maintenance/recording/recording.h"

namespace replay {

/// The functions that answer the library from the recording that player() has.
hooks::Addresses answers();

// The parts of it: the agent's reads by path, its cursors and changes, and the rest of the platform with the clock.
void add_agent_answers(hooks::Addresses &addresses);
void add_cursor_answers(hooks::Addresses &addresses);
void add_card_answers(hooks::Addresses &addresses);

/// The address that the library gets for a recorded handle. Nothing is there; it is only compared.
void *address_of(const recording::Handle &handle);

/// The keys or the tag of one element of a path, ended by a value of no type.
void write_element(const std::vector<recording::AgentValue> &element, confd_value_t (&values)[MAXKEYLEN]);

/// Takes the outputs of an answered call one after the other. It ends the replay where the recording holds others.
class Outputs {
 public:
  explicit Outputs(const recording::Call &call) : call_(call) {}

  template <typename T>
  const T &take() {
    const T *content = next_ < call_.outputs.size() ? std::get_if<T>(&call_.outputs[next_]) : nullptr;
    if (content == nullptr) fail();
    ++next_;
    return *content;
  }

  /// Writes the outputs that are left into `values`, the texts as copies that the library frees. Where the recording
  /// has null, the platform did not write the value, and it stays as it was.
  void take_owned(confd_value_t *values, long count);

 private:
  [[noreturn]] void fail() const;

  const recording::Call &call_;
  std::size_t next_ = 0;
};

/// The result of a call that has one.
int result_of(const recording::Call &call);

template <typename Type>
void add(hooks::Addresses &addresses, recording::Function function, Type *answer) {
  addresses[static_cast<std::size_t>(function)] = reinterpret_cast<void *>(answer);
}

}  // namespace replay

#endif
