#ifndef MAINTENANCE_RECORDING_LAYOUT_H
#define MAINTENANCE_RECORDING_LAYOUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// The layout of a file, for the one that writes and the one that reads. Numbers are LEB128 (groups of seven bits, the
// lowest first), signed ones in zigzag encoding. A text is its length and its bytes, or, where the file has it already,
// its place there.
//
//   magic  header  call...  trailer  digest
//   call = function + 1, items, end, callback..., answer, result?, errno?, items, end, duration
//   callback = mark, path, operation, value?, value?, call..., end, answer

namespace recording {

/// The last character is the version of the format.
inline constexpr std::string_view kMagic{"VPNREC\n\x01", 8};
inline constexpr std::size_t kDigestSize = 8;

/// What an item begins with. A value of the agent begins with agent_value + its type.
namespace tag {
inline constexpr std::uint8_t end = 0;
inline constexpr std::uint8_t signed_number = 1;
inline constexpr std::uint8_t unsigned_number = 2;
inline constexpr std::uint8_t real = 3;
inline constexpr std::uint8_t text = 4;
inline constexpr std::uint8_t null = 5;
inline constexpr std::uint8_t format = 6;
inline constexpr std::uint8_t handle = 0x10;  ///< + its kind
inline constexpr std::uint8_t agent_value = 0x40;
}  // namespace tag

/// What stands between calls. Functions have lower numbers.
namespace mark {
inline constexpr std::uint8_t callback = 0xf0;
inline constexpr std::uint8_t answer = 0xf1;
inline constexpr std::uint8_t trailer = 0xf2;
inline constexpr std::uint8_t end = 0xf3;
}  // namespace mark

/// Which of its two parts an answer has.
inline constexpr std::uint8_t kHasResult = 1;
inline constexpr std::uint8_t kHasError = 2;

/// Texts from the one length to the other are not written twice. Longer ones are: a small file must not stand for more
/// memory than there is.
inline constexpr std::size_t kShortestRepeated = 4;
inline constexpr std::size_t kLongestRepeated = 4096;

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "words are taken from memory as they stand in files");

/// In the manner of FNV-1a, eight bytes at a time: it tells a file that was torn or damaged, not one that was forged.
inline std::uint64_t digest(std::string_view bytes) {
  constexpr std::uint64_t kPrime = 1099511628211U;
  std::uint64_t sum = 14695981039346656037U;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    sum = (sum ^ word) * kPrime;
    sum ^= sum >> 32;
  }
  for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * kPrime;
  return sum ^ sum >> 32;
}

}  // namespace recording

#endif
