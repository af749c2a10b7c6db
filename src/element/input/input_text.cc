#include "element/input/input_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "element/input/input_error.h"
#include "element/input/input_file.h"

namespace element {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;
constexpr std::size_t kLongestQuote = 400;

void require_size(const std::filesystem::path &file, std::uintmax_t size) {
  if (size <= kMaxInputSize) return;
  throw InputError(
      fmt::format("{}: is larger than {} bytes; expected a file of at most that size", file.string(), kMaxInputSize));
}

// Pipes have no size, so the reader counts as well.
std::uintmax_t size_if_known(const std::filesystem::path &file) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(file, unknown);
  return unknown ? 0 : size;
}

}  // namespace

std::string read_input(const std::filesystem::path &file) {
  InputFile input(file);
  const std::uintmax_t size = size_if_known(file);
  require_size(file, size);

  std::string text;
  text.reserve(static_cast<std::size_t>(size) + 1);
  std::array<char, kChunk> chunk{};
  while (const std::size_t count = input.read(chunk.data(), chunk.size())) {
    text.append(chunk.data(), count);
    require_size(file, text.size());
  }
  return text;
}

Position position_at(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  Position position;
  position.line += static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  const std::size_t line_break = before.rfind('\n');
  position.column += line_break == std::string_view::npos ? before.size() : before.size() - line_break - 1;
  return position;
}

std::size_t LineCounter::line_at(std::size_t offset) {
  const std::string_view passed = text_.substr(counted_, offset - counted_);
  line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
  counted_ = offset;
  return line_;
}

std::string one_line(std::string_view text) {
  std::string line;
  for (const char c : text.substr(0, kLongestQuote)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte > 0x7e) {
      line += fmt::format("\\x{:02x}", byte);
    } else {
      line += c;
    }
  }
  if (text.size() > kLongestQuote) line += "...";
  return line;
}

}  // namespace element
