#include "maintenance/recording/decode.h"

#include <cstring>

#include "maintenance/recording/layout.h"

namespace recording {

namespace {

// No recorder nests calls deeper than a callback's own calls.
constexpr int kDeepest = 8;

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes), at_(kMagic.size()) {}

  Header header() {
    Header header;
    header.library = text();
    header.recorder = text();
    header.time = number();
    header.point = text();
    header.transaction = zigzag();
    header.path = key_path();
    header.value = optional_value();
    if (byte() != 0) header.last_extension = zigzag();
    header.limits = calls(mark::end, 0);
    ++at_;
    return header;
  }

  /// The calls up to the mark, which stays to be read.
  std::vector<Call> calls(std::uint8_t last, int depth) {
    std::vector<Call> calls;
    while (peek() != last) calls.push_back(call(depth));
    return calls;
  }

  Trailer trailer() {
    Trailer trailer;
    expect(mark::trailer, "the trailer");
    const std::uint8_t parts = byte();
    if ((parts & 1) != 0) trailer.verdict = zigzag();
    if ((parts & 2) != 0) trailer.message = std::string(text());
    trailer.duration = number();
    if (at_ != bytes_.size()) fail("the end of the file");
    return trailer;
  }

 private:
  [[noreturn]] void fail(const std::string &expected) const {
    throw DecodeError("byte " + std::to_string(at_) + ": expected " + expected);
  }

  std::uint8_t peek() const {
    if (at_ >= bytes_.size()) fail("more of the recording");
    return static_cast<std::uint8_t>(bytes_[at_]);
  }

  std::uint8_t byte() {
    const std::uint8_t byte = peek();
    ++at_;
    return byte;
  }

  void expect(std::uint8_t wanted, const char *what) {
    if (peek() != wanted) fail(what);
    ++at_;
  }

  std::uint64_t number() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      const std::uint8_t group = byte();
      number |= std::uint64_t{group & 0x7fU} << shift;
      if ((group & 0x80) == 0) return number;
    }
    fail("a number of at most 64 bits");
  }

  std::int64_t zigzag() {
    const std::uint64_t bits = number();
    return static_cast<std::int64_t>((bits & 1) == 0 ? bits >> 1 : ~(bits >> 1));
  }

  std::string_view slice(std::uint64_t place, std::uint64_t size) const {
    if (place > bytes_.size() || size > bytes_.size() - place) fail("a text within the file");
    return bytes_.substr(place, size);
  }

  std::string_view text() {
    const std::uint64_t what = number();
    if ((what & 1) != 0) {
      const std::uint64_t size = number();
      if (size > kLongestRepeated) fail("a text that is short enough to be repeated");
      return slice(what >> 1, size);
    }
    const std::string_view text = slice(at_, what >> 1);
    at_ += text.size();
    return text;
  }

  AgentValue agent_value() {
    AgentValue value;
    value.type = byte() - std::uint32_t{tag::agent_value};
    switch (value.type) {
      case kString:
      case kBuffer:
      case kIpv6:
        value.text = text();
        break;
      case kNoExists:
      case kList:
      case kDefault:
      case kEmpty:
        break;
      case kInt8:
      case kInt16:
      case kInt32:
      case kInt64:
      case kEnumValue:
        value.bits = static_cast<std::uint64_t>(zigzag());
        break;
      default:
        value.bits = number();
    }
    return value;
  }

  std::optional<AgentValue> optional_value() {
    if (peek() >= tag::agent_value) return agent_value();
    expect(tag::end, "a value or none");
    return std::nullopt;
  }

  KeyPath key_path() {
    KeyPath path;
    for (std::uint64_t size = number(); size > 0; --size) {
      path.emplace_back();
      while (peek() != tag::end) path.back().push_back(agent_value());
      ++at_;
    }
    return path;
  }

  Item item() {
    const std::uint8_t what = peek();
    if (what >= mark::callback) fail("an argument");
    if (what >= tag::agent_value) return agent_value();
    ++at_;
    if (what >= tag::handle) {
      const unsigned kind = what - unsigned{tag::handle};
      if (kind > static_cast<unsigned>(HandleKind::other)) fail("a known kind of handle");
      return Handle{static_cast<HandleKind>(kind), number()};
    }
    switch (what) {
      case tag::signed_number:
        return zigzag();
      case tag::unsigned_number:
        return number();
      case tag::real:
        return real();
      case tag::text:
        return std::string(text());
      case tag::null:
        return Null{};
      default:
        fail("an argument");
    }
  }

  double real() {
    const std::uint64_t bits = number();
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
  }

  Items items() {
    Items items;
    while (peek() != tag::end) items.push_back(item());
    ++at_;
    return items;
  }

  Call call(int depth) {
    Call call;
    const std::uint8_t function = byte();
    if (function == 0 || function > function_count) fail("a known function");
    call.function = static_cast<Function>(function - 1);
    read_arguments(call);
    while (peek() == mark::callback) call.callbacks.push_back(callback(depth));
    expect(mark::answer, "an answer");
    const std::uint8_t parts = byte();
    if ((parts & kHasResult) != 0) call.result = zigzag();
    if ((parts & kHasError) != 0) call.error = zigzag();
    call.outputs = items();
    call.duration = number();
    return call;
  }

  void read_arguments(Call &call) {
    while (peek() != tag::end && peek() != tag::format) call.arguments.push_back(item());
    if (byte() == tag::end) return;
    call.format = Format{std::string(text()), {}};
    call.format->arguments = items();
  }

  Callback callback(int depth) {
    if (depth >= kDeepest) fail("calls that are nested less deeply");
    ++at_;
    Callback callback;
    callback.path = key_path();
    callback.operation = zigzag();
    callback.old_value = optional_value();
    callback.new_value = optional_value();
    callback.calls = calls(mark::end, depth + 1);
    ++at_;
    callback.answer = zigzag();
    return callback;
  }

  std::string_view bytes_;
  std::size_t at_;
};

void require_whole(std::string_view bytes) {
  if (bytes.size() < kMagic.size() + kDigestSize ||
      bytes.substr(0, kMagic.size() - 1) != kMagic.substr(0, kMagic.size() - 1)) {
    throw DecodeError("this is no recording: it does not begin with VPNREC");
  }
  if (bytes[kMagic.size() - 1] != kMagic.back()) {
    throw DecodeError("this is a recording of format " + std::to_string(int{bytes[kMagic.size() - 1]}) + "; format " +
                      std::to_string(int{kMagic.back()}) + " was expected");
  }
  std::uint64_t kept = 0;
  for (std::size_t i = 0; i < kDigestSize; ++i) {
    kept |= std::uint64_t{static_cast<unsigned char>(bytes[bytes.size() - kDigestSize + i])} << (8 * i);
  }
  if (kept != digest(bytes.substr(0, bytes.size() - kDigestSize))) {
    throw DecodeError("the recording is torn or damaged: its digest does not fit its content");
  }
}

}  // namespace

Recording decode(std::string_view bytes) {
  require_whole(bytes);
  Reader reader(bytes.substr(0, bytes.size() - kDigestSize));
  Recording recording;
  recording.header = reader.header();
  recording.calls = reader.calls(mark::trailer, 0);
  recording.trailer = reader.trailer();
  return recording;
}

}  // namespace recording
