#include "element/input/netconf_framing.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "element/input/input_fault.h"

namespace element {
namespace {

/// As RFC 6242 bounds it: 4294967295 has ten digits.
constexpr std::size_t kMostDigits = 10;

}  // namespace

NetconfFraming::NetconfFraming(InputPieces &input) : input_(input), is_framed_(input.skip_blanks() == '#') {}

InputPiece NetconfFraming::next() {
  if (!is_framed_) return input_.next();
  while (left_ == 0) {
    if (!take_header()) return {"", piece_.line};
  }
  if (!fill()) refuse();
  const std::size_t size = std::min(left_, piece_.text.size());
  const InputPiece part{piece_.text.substr(0, size), piece_.line};
  piece_.line += static_cast<std::size_t>(std::count(part.text.begin(), part.text.end(), '\n'));
  piece_.text.remove_prefix(size);
  left_ -= size;
  return part;
}

/// Takes a chunk's header, or the end of a message. False at the end of the input, where a message must be complete.
/// Blank lines are taken before a header, for those who save a session often lose or add some.
bool NetconfFraming::take_header() {
  char c = take();
  while (c == '\n' || c == '\r' || c == ' ') c = take();
  if (c == 0 && is_complete_) return false;
  if (c != '#') refuse();
  std::string digits;
  for (c = take(); c != '\n' && c != '\r' && c != 0 && digits.size() <= kMostDigits; c = take()) digits += c;
  if (c == '\r') c = take();
  is_complete_ = digits == "#";
  if (is_complete_) return true;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), left_);
  if (c != '\n' || digits.empty() || error != std::errc{} || end != digits.data() + digits.size() || left_ == 0)
    refuse();
  return true;
}

/// The next byte, or 0 at the end.
char NetconfFraming::take() {
  if (!fill()) return 0;
  const char c = piece_.text.front();
  piece_.text.remove_prefix(1);
  if (c == '\n') ++piece_.line;
  return c;
}

bool NetconfFraming::fill() {
  if (piece_.text.empty()) piece_ = input_.next();
  return !piece_.text.empty();
}

void NetconfFraming::refuse() const {
  throw input_fault({input_.origin(), piece_.line},
                    "chunk of NETCONF's framing that does not end where its length says",
                    "\"#LENGTH\" on a line of its own, and \"##\" behind the last chunk");
}

}  // namespace element
