#include "element/input/input_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "element/input/input_error.h"

namespace element {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;
constexpr std::size_t kLongestQuote = 400;

struct CloseFile {
  void operator()(std::FILE *file) const { std::fclose(file); }
};

[[noreturn]] void throw_file_error(const std::filesystem::path &file) {
  const std::string reason = std::generic_category().message(errno);
  throw FileError(fmt::format("{}: cannot be read: {}; expected a readable file", file.string(), reason));
}

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

/// The sequences of UTF-8 that begin with bytes of one range: how many bytes follow, and the bounds of the first of
/// them, which keep out longer forms of a character than need be, surrogates and what is beyond U+10FFFF.
struct Utf8Lead {
  unsigned char first, last;
  std::size_t following;
  unsigned char least, most;
};
constexpr std::array<Utf8Lead, 8> kUtf8Leads{{{0xc2, 0xdf, 1, 0x80, 0xbf},
                                              {0xe0, 0xe0, 2, 0xa0, 0xbf},
                                              {0xe1, 0xec, 2, 0x80, 0xbf},
                                              {0xed, 0xed, 2, 0x80, 0x9f},
                                              {0xee, 0xef, 2, 0x80, 0xbf},
                                              {0xf0, 0xf0, 3, 0x90, 0xbf},
                                              {0xf1, 0xf3, 3, 0x80, 0xbf},
                                              {0xf4, 0xf4, 3, 0x80, 0x8f}}};

bool is_between(char c, unsigned char least, unsigned char most) {
  const auto byte = static_cast<unsigned char>(c);
  return least <= byte && byte <= most;
}

/// The length of the character that is not ASCII at the front, or 0 where there is none.
std::size_t utf8_length(std::string_view text) {
  for (const Utf8Lead &lead : kUtf8Leads) {
    if (!is_between(text[0], lead.first, lead.last)) continue;
    if (text.size() <= lead.following || !is_between(text[1], lead.least, lead.most)) return 0;
    const std::string_view rest = text.substr(2, lead.following - 1);
    const bool is_whole = std::all_of(rest.begin(), rest.end(), [](char c) { return is_between(c, 0x80, 0xbf); });
    return is_whole ? lead.following + 1 : 0;
  }
  return 0;
}

}  // namespace

std::string read_input(const std::filesystem::path &file) {
  const std::unique_ptr<std::FILE, CloseFile> stream(std::fopen(file.c_str(), "rb"));
  if (!stream) throw_file_error(file);
  const std::uintmax_t size = size_if_known(file);
  require_size(file, size);

  std::string text;
  text.reserve(static_cast<std::size_t>(size) + 1);
  std::array<char, kChunk> chunk{};
  while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), stream.get())) {
    text.append(chunk.data(), count);
    require_size(file, text.size());
  }
  if (std::ferror(stream.get()) != 0) throw_file_error(file);
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

std::optional<std::size_t> find_not_utf8(std::string_view text) {
  std::size_t place = 0;
  while (place < text.size()) {
    const std::size_t length = is_between(text[place], 0, 0x7f) ? 1 : utf8_length(text.substr(place));
    if (length == 0) return place;
    place += length;
  }
  return std::nullopt;
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
