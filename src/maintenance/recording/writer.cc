#include "maintenance/recording/writer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "maintenance/recording/layout.h"

namespace recording {

namespace {

constexpr std::size_t kFirstRoom = std::size_t{64} * 1024;

}  // namespace

void Writer::Free::operator()(char *memory) const { std::free(memory); }

void Writer::start() {
  size_ = 0;
  is_whole_ = true;
  seen_.fill({});
  raw(kMagic);
}

bool Writer::make_room(std::size_t more) {
  if (room_ - size_ >= more) return true;
  if (!is_whole_ || more > limit_ - size_) return is_whole_ = false;
  const std::size_t wanted = std::min(limit_, std::max({room_ * 2, size_ + more, kFirstRoom}));
  auto *memory = static_cast<char *>(std::realloc(bytes_.get(), wanted));
  if (memory == nullptr) return is_whole_ = false;
  static_cast<void>(bytes_.release());
  bytes_.reset(memory);
  room_ = wanted;
  return true;
}

void Writer::byte(std::uint8_t byte) {
  if (make_room(1)) bytes_.get()[size_++] = static_cast<char>(byte);
}

void Writer::number(std::uint64_t number) {
  if (!make_room(10)) return;
  for (; number >= 0x80; number >>= 7) bytes_.get()[size_++] = static_cast<char>(number | 0x80);
  bytes_.get()[size_++] = static_cast<char>(number);
}

void Writer::zigzag(std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  this->number(number < 0 ? ~(bits << 1) : bits << 1);
}

void Writer::raw(std::string_view bytes) {
  if (bytes.empty() || !make_room(bytes.size())) return;
  std::memcpy(bytes_.get() + size_, bytes.data(), bytes.size());
  size_ += bytes.size();
}

// An even number begins a new text, an odd one names an earlier one.
void Writer::text(std::string_view text) {
  const std::uint64_t length = text.size();
  if (text.size() >= kShortestRepeated && text.size() <= kLongestRepeated) {
    const auto hash = static_cast<std::uint32_t>(digest(text));
    Seen &seen = seen_[hash % kSeen];
    const bool is_same = seen.place != 0 && seen.hash == hash && seen.size == text.size() &&
                         std::memcmp(bytes_.get() + seen.place, text.data(), text.size()) == 0;
    if (is_same) {
      number(std::uint64_t{seen.place} << 1 | 1);
      return number(length);
    }
    number(length << 1);
    if (make_room(text.size())) {
      seen = {hash, static_cast<std::uint32_t>(size_), static_cast<std::uint32_t>(text.size())};
    }
    return raw(text);
  }
  number(length << 1);
  raw(text);
}

void Writer::header(const Header &header) {
  text(header.library);
  text(header.recorder);
  number(header.time);
  text(header.point);
  zigzag(header.transaction);
  key_path(header.path);
  optional_value(header.value);
  optional_number(header.last_extension);
}

void Writer::optional_number(const std::optional<std::int64_t> &number) {
  byte(number ? 1 : 0);
  if (number) zigzag(*number);
}

void Writer::end_header() { byte(mark::end); }

void Writer::start_call(Function function) { byte(static_cast<std::uint8_t>(static_cast<unsigned>(function) + 1)); }

void Writer::start_callback() { byte(mark::callback); }

void Writer::callback_change(std::int64_t operation) { zigzag(operation); }

void Writer::end_callback(std::int64_t answer) {
  byte(mark::end);
  zigzag(answer);
}

void Writer::signed_item(std::int64_t number) {
  byte(tag::signed_number);
  zigzag(number);
}

void Writer::unsigned_item(std::uint64_t number) {
  byte(tag::unsigned_number);
  this->number(number);
}

void Writer::real_item(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  byte(tag::real);
  this->number(bits);
}

void Writer::text_item(std::string_view text) {
  byte(tag::text);
  this->text(text);
}

void Writer::null_item() { byte(tag::null); }

void Writer::handle_item(Handle handle) {
  byte(static_cast<std::uint8_t>(tag::handle + static_cast<unsigned>(handle.kind)));
  number(handle.number);
}

void Writer::agent_value(std::uint32_t type, std::uint64_t bits, std::string_view text) {
  byte(static_cast<std::uint8_t>(tag::agent_value + type));
  switch (type) {
    case kString:
    case kBuffer:
    case kIpv6:
      return this->text(text);
    case kNoExists:
    case kList:
    case kDefault:
    case kEmpty:
      return;
    case kInt8:
    case kInt16:
    case kInt32:
    case kInt64:
    case kEnumValue:
      return zigzag(static_cast<std::int64_t>(bits));
    default:
      return number(bits);
  }
}

void Writer::item(const Item &item) {
  struct Visitor {
    Writer &writer;
    void operator()(std::int64_t number) const { writer.signed_item(number); }
    void operator()(std::uint64_t number) const { writer.unsigned_item(number); }
    void operator()(double number) const { writer.real_item(number); }
    void operator()(const std::string &text) const { writer.text_item(text); }
    void operator()(Null) const { writer.null_item(); }
    void operator()(Handle handle) const { writer.handle_item(handle); }
    void operator()(const AgentValue &value) const { writer.agent_value(value.type, value.bits, value.text); }
  };
  std::visit(Visitor{*this}, item);
}

void Writer::format(std::string_view text) {
  byte(tag::format);
  this->text(text);
}

void Writer::end_items() { byte(tag::end); }

void Writer::answer(const std::int64_t *result, const std::int64_t *error) {
  byte(mark::answer);
  byte(static_cast<std::uint8_t>((result == nullptr ? 0 : kHasResult) | (error == nullptr ? 0 : kHasError)));
  if (result != nullptr) zigzag(*result);
  if (error != nullptr) zigzag(*error);
}

void Writer::duration(std::uint64_t nanoseconds) { number(nanoseconds); }

void Writer::path_size(std::size_t elements) { number(elements); }

void Writer::no_value() { end_items(); }

void Writer::key_path(const KeyPath &path) {
  path_size(path.size());
  for (const auto &element : path) {
    for (const AgentValue &value : element) agent_value(value.type, value.bits, value.text);
    end_items();
  }
}

void Writer::optional_value(const std::optional<AgentValue> &value) {
  if (!value) return no_value();
  agent_value(value->type, value->bits, value->text);
}

void Writer::trailer(const std::int64_t *verdict, const std::string_view *message, std::uint64_t nanoseconds) {
  byte(mark::trailer);
  byte(static_cast<std::uint8_t>((verdict == nullptr ? 0 : 1) | (message == nullptr ? 0 : 2)));
  if (verdict != nullptr) zigzag(*verdict);
  if (message != nullptr) text(*message);
  number(nanoseconds);
}

void Writer::finish() {
  if (!is_whole_) return;
  std::uint64_t sum = digest(bytes());
  for (std::size_t i = 0; i < kDigestSize; ++i, sum >>= 8) byte(static_cast<std::uint8_t>(sum));
}

}  // namespace recording
