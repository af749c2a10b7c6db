#ifndef MAINTENANCE_HOOKS_QUESTION_H
#define MAINTENANCE_HOOKS_QUESTION_H

#include "confd_lib.h"
#include "maintenance/hooks/agent_values.h"
#include "maintenance/hooks/format_arguments.h"
#include "maintenance/recording/recording.h"
#include "maintenance/recording/writer.h"

namespace hooks {

/// Values of the agent, one after the other.
struct Values {
  const confd_value_t *first;
  int count;
};

// One argument of a call, or one output, as an item of the recording. False where what it holds is not known, so that
// the recording would not be what happened.
bool write(recording::Writer &writer, std::int32_t number);
bool write(recording::Writer &writer, std::int64_t number);
bool write(recording::Writer &writer, std::uint32_t number);
bool write(recording::Writer &writer, std::uint64_t number);
bool write(recording::Writer &writer, const recording::Handle &handle);
bool write(recording::Writer &writer, const char *text);
bool write(recording::Writer &writer, std::string_view text);
bool write(recording::Writer &writer, const FormatArguments &arguments);
bool write(recording::Writer &writer, const Values &values);

// The same, added to a call.
void add(recording::Call &call, std::int32_t number);
void add(recording::Call &call, std::int64_t number);
void add(recording::Call &call, std::uint32_t number);
void add(recording::Call &call, std::uint64_t number);
void add(recording::Call &call, const recording::Handle &handle);
void add(recording::Call &call, const char *text);
void add(recording::Call &call, std::string_view text);
void add(recording::Call &call, const FormatArguments &arguments);
void add(recording::Call &call, const confd_value_t &value);
void add(recording::Call &call, const Values &values);

/// A call with these arguments, as the recorder would write it.
template <typename... Arguments>
recording::Call question(recording::Function function, const Arguments &...arguments) {
  recording::Call call;
  call.function = function;
  (add(call, arguments), ...);
  return call;
}

}  // namespace hooks

#endif
