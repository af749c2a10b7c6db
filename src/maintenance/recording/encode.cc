#include "maintenance/recording/encode.h"

#include <limits>
#include <new>

#include "maintenance/recording/writer.h"

namespace recording {

namespace {

template <typename T>
const T *address(const std::optional<T> &value) {
  return value ? &*value : nullptr;
}

void write(Writer &writer, const std::vector<Call> &calls);

void write(Writer &writer, const Items &items) {
  for (const Item &item : items) writer.item(item);
}

void write(Writer &writer, const Callback &callback) {
  writer.start_callback();
  writer.key_path(callback.path);
  writer.callback_change(callback.operation);
  writer.optional_value(callback.old_value);
  writer.optional_value(callback.new_value);
  write(writer, callback.calls);
  writer.end_callback(callback.answer);
}

void write(Writer &writer, const Call &call) {
  writer.start_call(call.function);
  write(writer, call.arguments);
  if (call.format) {
    writer.format(call.format->text);
    write(writer, call.format->arguments);
  }
  writer.end_items();
  for (const Callback &callback : call.callbacks) write(writer, callback);
  writer.answer(address(call.result), address(call.error));
  write(writer, call.outputs);
  writer.end_items();
  writer.duration(call.duration);
}

void write(Writer &writer, const std::vector<Call> &calls) {
  for (const Call &call : calls) write(writer, call);
}

}  // namespace

std::string encode(const Recording &recording) {
  Writer writer(std::numeric_limits<std::uint32_t>::max());
  writer.start();
  writer.header(recording.header);
  write(writer, recording.header.limits);
  writer.end_header();
  write(writer, recording.calls);
  const std::optional<std::string> &message = recording.trailer.message;
  const std::string_view text = message ? std::string_view(*message) : std::string_view();
  writer.trailer(address(recording.trailer.verdict), message ? &text : nullptr, recording.trailer.duration);
  writer.finish();
  if (!writer.is_whole()) throw std::bad_alloc();
  return std::string(writer.bytes());
}

}  // namespace recording
