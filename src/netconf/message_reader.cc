#include "netconf/message_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "element/input/input_text.h"

namespace netconf {
namespace {

constexpr std::string_view kMark = "]]>]]>";

/// The greatest length of a chunk that the protocol allows has ten digits.
constexpr std::size_t kMostDigits = 10;

/// How many bytes at the begin of the text belong to the message whatever follows: all before the mark, or before what
/// may be the mark's begin.
std::size_t size_before_mark(std::string_view text) {
  const std::size_t found = text.find(kMark);
  if (found != std::string_view::npos) return found;
  std::size_t tail = std::min(text.size(), kMark.size() - 1);
  while (!kMark.starts_with(text.substr(text.size() - tail))) --tail;
  return text.size() - tail;
}

}  // namespace

std::size_t MessageReader::read(char *buffer, std::size_t size) {
  return framing_ == Framing::chunks ? read_chunk(buffer, size) : read_to_mark(buffer, size);
}

std::size_t MessageReader::read_to_mark(char *buffer, std::size_t size) {
  for (;;) {
    const std::size_t count = size_before_mark(next_);
    if (count != 0) {
      is_in_message_ = true;
      return pass_on(std::min(count, size), buffer);
    }
    if (next_.starts_with(kMark)) {
      next_.remove_prefix(kMark.size());
      return end_message();
    }
    fill();
  }
}

std::size_t MessageReader::read_chunk(char *buffer, std::size_t size) {
  if (left_ == 0 && !take_header()) return end_message();
  if (next_.empty()) fill();
  const std::size_t count = pass_on(std::min({left_, size, next_.size()}), buffer);
  left_ -= count;
  return count;
}

/// Takes "\n#LENGTH\n"; false at "\n##\n", the end of a message. More line feeds before a message are passed over: some
/// servers end their hello with one.
bool MessageReader::take_header() {
  header_.clear();
  if (take() != '\n') refuse_header();
  char c = take();
  while (c == '\n' && !is_in_message_) c = take();
  if (c != '#') refuse_header();
  c = take();
  if (c == '#') {
    if (!is_in_message_ || take() != '\n') refuse_header();
    return false;
  }
  left_ = take_length(c);
  is_in_message_ = true;
  return true;
}

std::size_t MessageReader::take_length(char first) {
  std::string digits;
  for (char c = first; c != '\n'; c = take()) {
    if (c < '0' || c > '9' || digits.size() == kMostDigits) refuse_header();
    digits += c;
  }
  std::uint32_t length = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
  if (digits.empty() || digits.front() == '0' || error != std::errc{}) refuse_header();
  return length;
}

char MessageReader::take() {
  if (next_.empty()) fill();
  const char c = next_.front();
  next_.remove_prefix(1);
  header_ += c;
  return c;
}

std::size_t MessageReader::pass_on(std::size_t count, char *buffer) {
  next_.copy(buffer, count);
  next_.remove_prefix(count);
  return count;
}

/// Reads more behind what is left, which is at most the begin of a mark.
void MessageReader::fill() {
  std::copy(next_.begin(), next_.end(), buffer_.begin());
  const std::size_t count = transport_.read(buffer_.data() + next_.size(), buffer_.size() - next_.size());
  if (count == 0) {
    const bool is_inside = is_in_message_ || !next_.empty();
    const std::string reason = transport_.end_reason();
    throw SessionError(fmt::format("the connection ended{}{}", is_inside ? " inside a message" : "",
                                   reason.empty() ? "" : fmt::format(": {}", reason)));
  }
  next_ = {buffer_.data(), next_.size() + count};
}

std::size_t MessageReader::end_message() {
  is_in_message_ = false;
  return 0;
}

void MessageReader::refuse_header() const {
  throw SessionError(
      fmt::format("\"{}\" in place of a chunk's header; expected \"#LENGTH\" on a line of its own, LENGTH from 1 to "
                  "4294967295, or \"##\" behind a message's last chunk",
                  element::one_line(header_)));
}

std::string framed(std::string_view message, Framing framing) {
  if (framing == Framing::end_of_message) return fmt::format("{}{}", message, kMark);
  return fmt::format("\n#{}\n{}\n##\n", message.size(), message);
}

}  // namespace netconf
