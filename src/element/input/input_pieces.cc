#include "element/input/input_pieces.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "element/input/input_fault.h"
#include "element/input/input_file.h"
#include "element/input/input_text.h"
#include "element/input/utf8.h"

namespace element {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

std::size_t count_lines(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// The size without a character at the end that may go on behind it.
std::size_t size_of_whole_characters(std::string_view text) {
  const std::size_t tail = std::min(text.size(), kLongestCharacter - 1);
  for (std::size_t i = text.size() - tail; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const std::size_t length = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : byte >= 0xc0 ? 2 : 1;
    if (i + length > text.size()) return i;
  }
  return text.size();
}

InputPieces::Source source_of(const std::filesystem::path &file) {
  const auto input = std::make_shared<InputFile>(file);
  return [input](char *buffer, std::size_t size) { return input->read(buffer, size); };
}

}  // namespace

InputPieces::InputPieces(const std::filesystem::path &file) : InputPieces(source_of(file), file.string()) {}

InputPieces::InputPieces(std::string_view text, std::string origin) : origin_(std::move(origin)), text_(text) {}

InputPieces::InputPieces(Source source, std::string origin)
    : origin_(std::move(origin)), source_(std::move(source)), buffer_(kPiece) {}

char InputPieces::skip_blanks() {
  for (InputPiece piece = next(); !piece.text.empty(); piece = next()) {
    const std::size_t begin = piece.text.find_first_not_of(kBlank);
    if (begin == std::string_view::npos) continue;
    put_back(piece.text.substr(begin));
    return piece.text[begin];
  }
  return 0;
}

InputPiece InputPieces::next() {
  std::string_view text = std::exchange(rest_, {});
  if (text.empty()) {
    text = read();
    require_text(text);
  }
  const InputPiece piece{text, line_};
  line_ += count_lines(text);
  return piece;
}

void InputPieces::put_back(std::string_view rest) {
  rest_ = rest;
  line_ -= count_lines(rest);
}

/// A character that the piece cuts is left for the next one. At the end of the input nothing is cut: a character that
/// is not whole there is an error.
std::string_view InputPieces::read() {
  for (;;) {
    const bool at_end = !fill();
    std::string_view piece = text_.substr(0, kPiece);
    if (!at_end) piece = piece.substr(0, size_of_whole_characters(piece));
    text_.remove_prefix(piece.size());
    if (!std::exchange(has_begun_, true) && piece.starts_with(kByteOrderMark)) {
      piece.remove_prefix(kByteOrderMark.size());
    }
    if (!piece.empty() || at_end) return piece;
  }
}

/// Whether there is something behind the next piece, or may be.
bool InputPieces::fill() {
  if (buffer_.empty()) return text_.size() > kPiece;
  std::copy(text_.begin(), text_.end(), buffer_.begin());
  if (!source_) return false;
  const std::size_t count = source_(buffer_.data() + text_.size(), kPiece - text_.size());
  text_ = {buffer_.data(), text_.size() + count};
  if (count == 0) source_ = nullptr;
  return count != 0;
}

// The parsers take a zero byte for the end of the text, or are at a loss for words about it.
void InputPieces::require_text(std::string_view text) const {
  const auto refuse = [&](std::size_t offset, const std::string &fault) {
    throw input_fault({origin_, line_ + count_lines(text.substr(0, offset))}, fault, "text in UTF-8");
  };
  const std::size_t zero = text.find('\0');
  if (zero != std::string_view::npos) refuse(zero, "zero byte");
  const std::optional<std::size_t> wrong = find_invalid_utf8(text);
  if (wrong) refuse(*wrong, "byte " + one_line(text.substr(*wrong, 1)));
}

}  // namespace element
