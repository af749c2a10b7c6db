#include "element/input/input_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "element/input/input_error.h"
#include "element/input/input_file.h"
#include "element/input/utf8.h"

namespace element {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;

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

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(kBlank), text.size());
  const std::size_t end = text.find_last_not_of(kBlank);
  return begin == text.size() ? std::string_view() : text.substr(begin, end - begin + 1);
}

std::string one_line(std::string_view text, std::size_t longest) {
  std::string line;
  std::string_view rest = text;
  while (!rest.empty() && text.size() - rest.size() < longest) {
    const std::string_view before = rest;
    const char32_t character = take_character(rest);
    const std::string_view bytes = before.substr(0, before.size() - rest.size());
    const bool is_invalid = character == kReplacementCharacter && bytes.size() == 1;
    if (is_invalid) {
      line += escape_of(static_cast<unsigned char>(bytes.front()));
    } else if (steers_terminal(character)) {
      line += escape_of(character);
    } else {
      line += bytes;
    }
  }
  if (!rest.empty()) line += "...";
  return line;
}

}  // namespace element
