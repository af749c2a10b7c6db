#ifndef MAINTENANCE_RECORDING_WRITER_H
#define MAINTENANCE_RECORDING_WRITER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "maintenance/recording/function.h"
#include "maintenance/recording/recording.h"

namespace recording {

/// Writes the parts of a recording one after the other into memory of at most `limit` bytes. It never throws: what does
/// not fit, or for which there is no memory, is left out, and is_whole() tells.
class Writer {
 public:
  explicit Writer(std::size_t limit) : limit_(limit) {}

  /// Forgets all and begins a file.
  void start();

  /// The parts of a header. A signed number is written in zigzag encoding.
  void number(std::uint64_t number);
  void zigzag(std::int64_t number);
  void text(std::string_view text);
  void optional_number(const std::optional<std::int64_t> &number);

  /// All of a header but its limits, which follow as calls, and end_header().
  void header(const Header &header);
  void end_header();
  void start_call(Function function);
  void start_callback();
  /// After the callback's path.
  void callback_change(std::int64_t operation);
  void end_callback(std::int64_t answer);

  /// One item. A text that is null is written as such.
  void signed_item(std::int64_t number);
  void unsigned_item(std::uint64_t number);
  void real_item(double number);
  void text_item(std::string_view text);
  void null_item();
  void handle_item(Handle handle);
  void item(const Item &item);

  /// A value of the agent whose content is in `bits` or, where its type has one, in `text`.
  void agent_value(std::uint32_t type, std::uint64_t bits, std::string_view text);
  void format(std::string_view text);
  /// Ends a list of items.
  void end_items();

  void answer(const std::int64_t *result, const std::int64_t *error);
  /// Nanoseconds; ends a call.
  void duration(std::uint64_t nanoseconds);

  void key_path(const KeyPath &path);
  void optional_value(const std::optional<AgentValue> &value);
  void path_size(std::size_t elements);
  void no_value();

  void trailer(const std::int64_t *verdict, const std::string_view *message, std::uint64_t nanoseconds);
  /// Ends the file; nothing may follow.
  void finish();

  bool is_whole() const { return is_whole_; }
  std::string_view bytes() const { return {bytes_.get(), size_}; }

 private:
  struct Free {
    void operator()(char *memory) const;
  };
  /// Where a text of some hash stands in the file, as a length before its bytes.
  struct Seen {
    std::uint32_t hash = 0;
    std::uint32_t place = 0;
    std::uint32_t size = 0;
  };
  static constexpr std::size_t kSeen = 4096;

  bool make_room(std::size_t more);
  void byte(std::uint8_t byte);
  void raw(std::string_view bytes);

  std::size_t limit_;
  std::unique_ptr<char, Free> bytes_;
  std::size_t room_ = 0;
  std::size_t size_ = 0;
  bool is_whole_ = true;
  std::array<Seen, kSeen> seen_{};
};

}  // namespace recording

#endif
