#include "maintenance/hooks/question.h"

namespace hooks {

bool write(recording::Writer &writer, std::int32_t number) { return write(writer, std::int64_t{number}); }

bool write(recording::Writer &writer, std::int64_t number) {
  writer.signed_item(number);
  return true;
}

bool write(recording::Writer &writer, std::uint32_t number) { return write(writer, std::uint64_t{number}); }

bool write(recording::Writer &writer, std::uint64_t number) {
  writer.unsigned_item(number);
  return true;
}

bool write(recording::Writer &writer, const recording::Handle &handle) {
  writer.handle_item(handle);
  return true;
}

bool write(recording::Writer &writer, const char *text) {
  if (text != nullptr) return write(writer, std::string_view(text));
  writer.null_item();
  return true;
}

bool write(recording::Writer &writer, std::string_view text) {
  writer.text_item(text);
  return true;
}

bool write(recording::Writer &writer, const FormatArguments &arguments) {
  arguments.write(writer);
  return arguments.is_known();
}

bool write(recording::Writer &writer, const Values &values) {
  bool is_known = true;
  for (int i = 0; i < values.count; ++i) is_known = write(writer, values.first[i]) && is_known;
  return is_known;
}

void add(recording::Call &call, std::int32_t number) { add(call, std::int64_t{number}); }
void add(recording::Call &call, std::int64_t number) { call.arguments.emplace_back(number); }
void add(recording::Call &call, std::uint32_t number) { add(call, std::uint64_t{number}); }
void add(recording::Call &call, std::uint64_t number) { call.arguments.emplace_back(number); }
void add(recording::Call &call, const recording::Handle &handle) { call.arguments.emplace_back(handle); }

void add(recording::Call &call, const char *text) {
  if (text != nullptr) return add(call, std::string_view(text));
  call.arguments.emplace_back(recording::Null{});
}

void add(recording::Call &call, std::string_view text) { call.arguments.emplace_back(std::string(text)); }
void add(recording::Call &call, const FormatArguments &arguments) { call.format = arguments.recorded(); }
void add(recording::Call &call, const confd_value_t &value) { call.arguments.emplace_back(recorded(value)); }

void add(recording::Call &call, const Values &values) {
  for (int i = 0; i < values.count; ++i) add(call, values.first[i]);
}

}  // namespace hooks
