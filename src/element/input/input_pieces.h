#ifndef ELEMENT_INPUT_INPUT_PIECES_H
#define ELEMENT_INPUT_INPUT_PIECES_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace element {

/// A part of an input.
struct InputPiece {
  std::string_view text;
  std::size_t line = 1;  ///< of its first byte in the input, from 1
};

/// An input that is read once from begin to end, in pieces of bounded size, so that memory does not grow with the file.
/// A byte order mark at the begin is left out.
class InputPieces {
 public:
  /// Opens the file, which may be a pipe. Throws FileError.
  explicit InputPieces(const std::filesystem::path &file);
  /// Reads `text`, which must outlive the object. Errors name `origin` as the file.
  InputPieces(std::string_view text, std::string origin);
  /// Reads what `source` puts into its buffer, at most `size` bytes a call; 0 is the end, after which it is not called
  /// again. What it throws comes through.
  using Source = std::function<std::size_t(char *buffer, std::size_t size)>;
  InputPieces(Source source, std::string origin);
  InputPieces(const InputPieces &) = delete;
  InputPieces &operator=(const InputPieces &) = delete;

  /// The file as it was named.
  const std::string &origin() const { return origin_; }

  /// The first byte that is not blank, or 0 where there is none; drops the blanks before it. The next piece begins with
  /// that byte. Throws as next().
  char skip_blanks();

  /// The next piece, at most 64 KiB of whole characters; empty at the end. Valid until the next call. Throws FileError
  /// where the file cannot be read, and InputError, which names file and line, at a zero byte and at a byte that is not
  /// UTF-8.
  InputPiece next();

  /// Makes the next piece begin with `rest`, the end of the piece that next() returned last.
  void put_back(std::string_view rest);

 private:
  std::string_view read();
  bool fill();
  void require_text(std::string_view text) const;

  std::string origin_;
  Source source_;             ///< none for a text
  std::string_view text_;     ///< what is left of a text, or of what the buffer holds
  std::vector<char> buffer_;  ///< of a source
  std::string_view rest_;     ///< put back
  std::size_t line_ = 1;      ///< of the next piece
  bool has_begun_ = false;
};

}  // namespace element

#endif
