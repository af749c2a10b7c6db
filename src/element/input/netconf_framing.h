#ifndef ELEMENT_INPUT_NETCONF_FRAMING_H
#define ELEMENT_INPUT_NETCONF_FRAMING_H

#include <cstddef>
#include <string_view>

#include "element/input/input_pieces.h"

namespace element {

/// Takes NETCONF's chunked framing (RFC 6242) off an input: "\n#LENGTH\n" before each chunk, "\n##\n" behind a message.
/// An input that does not begin with a chunk is passed on as it is.
class NetconfFraming {
 public:
  /// Reads to the first byte that is not blank. Throws as InputPieces::next().
  explicit NetconfFraming(InputPieces &input);

  /// The next piece of what is framed, with its line in the input; empty at the end. Valid until the next call. Throws
  /// InputError, which names file and line, where no chunk stands as its framing says, and as InputPieces::next().
  InputPiece next();

 private:
  bool take_header();
  char take();
  bool fill();
  [[noreturn]] void refuse() const;

  InputPieces &input_;
  bool is_framed_;
  InputPiece piece_;          ///< what is left of it
  std::size_t left_ = 0;      ///< bytes of the chunk
  bool is_complete_ = false;  ///< the last message is
};

}  // namespace element

#endif
