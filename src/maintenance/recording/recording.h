#ifndef MAINTENANCE_RECORDING_RECORDING_H
#define MAINTENANCE_RECORDING_RECORDING_H

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "maintenance/recording/function.h"

namespace recording {

/// The numbers that the management agent's values carry for their types.
enum AgentType : std::uint32_t {
  kNoExists = 1,
  kXmlTag = 2,
  kString = 4,
  kBuffer = 5,
  kInt8 = 6,
  kInt16 = 7,
  kInt32 = 8,
  kInt64 = 9,
  kUint8 = 10,
  kUint16 = 11,
  kUint32 = 12,
  kUint64 = 13,
  kDouble = 14,
  kIpv4 = 15,
  kIpv6 = 16,
  kBool = 17,
  kEnumValue = 28,
  kList = 31,
  kDefault = 42,
  kEmpty = 53
};

/// A value of the management agent. `bits` holds a number (signed ones as two's complement of 64 bits), a truth value,
/// an IPv4 address with its first byte highest, the bits of a double, or of a tag its name's number, and above it that
/// of its name space. `text` holds texts, and the 16 bytes of an IPv6 address.
struct AgentValue {
  std::uint32_t type = kNoExists;
  std::uint64_t bits = 0;
  std::string text;

  bool operator==(const AgentValue &other) const {
    return std::tie(type, bits, text) == std::tie(other.type, other.bits, other.text);
  }
  bool operator!=(const AgentValue &other) const { return !(*this == other); }
};

/// What a pointer stands for. No address is ever recorded.
enum class HandleKind : std::uint8_t { none, context, middleware, instance, session, cursor, category, other };

/// A pointer, as the `number`-th of its kind in this recording.
struct Handle {
  HandleKind kind = HandleKind::none;
  std::uint64_t number = 0;

  bool operator==(const Handle &other) const { return kind == other.kind && number == other.number; }
  bool operator!=(const Handle &other) const { return !(*this == other); }
};

/// A null pointer in place of a text.
struct Null {
  bool operator==(const Null &) const { return true; }
  bool operator!=(const Null &) const { return false; }
};

/// One argument or output of a call.
using Item = std::variant<std::int64_t, std::uint64_t, double, std::string, Null, Handle, AgentValue>;
using Items = std::vector<Item>;

/// A printf-style format with its arguments apart: put together, a key with a blank in it would read as two.
struct Format {
  std::string text;
  Items arguments;

  bool operator==(const Format &other) const { return text == other.text && arguments == other.arguments; }
  bool operator!=(const Format &other) const { return !(*this == other); }
};

/// A path as the agent hands it to a callback: the last element first, of a list entry its keys.
using KeyPath = std::vector<std::vector<AgentValue>>;

struct Callback;

/// A call that the library made, and its answer.
struct Call {
  Function function = Function::count;
  Items arguments;               ///< in the order of the declaration, without those that are only written to
  std::optional<Format> format;  ///< of functions that take one
  std::vector<Callback> callbacks;
  std::optional<std::int64_t> result;  ///< none for functions without one
  std::optional<std::int64_t> error;   ///< confd_errno, where the call failed
  Items outputs;                       ///< what the platform wrote, in the order of the declaration
  std::uint64_t duration = 0;          ///< nanoseconds
};

/// A call of the library's function by a call of the platform.
struct Callback {
  KeyPath path;
  std::int64_t operation = 0;
  std::optional<AgentValue> old_value;
  std::optional<AgentValue> new_value;
  std::vector<Call> calls;  ///< that the library's function made in turn
  std::int64_t answer = 0;
};

struct Header {
  std::string library;     ///< build id of the recorded library
  std::string recorder;    ///< version of the recorder
  std::uint64_t time = 0;  ///< of the call of `validate`, nanoseconds since 1970
  std::string point;       ///< name of the validation point
  std::int64_t transaction = 0;
  KeyPath path;
  std::optional<AgentValue> value;
  /// The feature model's last answers to this process before the call: the library asks for some of them only once.
  std::vector<Call> limits;
  /// The clock, nanoseconds since 1970, when the library last extended its time before the call, or when it asked for
  /// the time first.
  std::optional<std::int64_t> last_extension;
};

struct Trailer {
  std::optional<std::int64_t> verdict;  ///< what `validate` returned; none where an exception left it
  std::optional<std::string> message;   ///< the last text that the library gave the agent
  std::uint64_t duration = 0;           ///< of `validate`, nanoseconds
};

/// One call of the library's `validate`, with all that the library asked for.
struct Recording {
  Header header;
  std::vector<Call> calls;
  Trailer trailer;
};

/// Whether the library asked the same: function, arguments and format. Answers may differ.
inline bool asks_same(const Call &call, const Call &other) {
  return call.function == other.function && call.arguments == other.arguments && call.format == other.format;
}

}  // namespace recording

#endif
