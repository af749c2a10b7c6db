#ifndef NETCONF_MESSAGE_READER_H
#define NETCONF_MESSAGE_READER_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "netconf/transport.h"

namespace netconf {

/// How a message is set off from the next one (RFC 6242): by "]]>]]>" behind it, or cut into chunks with their lengths.
enum class Framing { end_of_message, chunks };

/// Takes messages off a stream of bytes, in pieces as they come: no message is held whole.
class MessageReader {
 public:
  /// The transport must outlive the object.
  explicit MessageReader(Transport &transport) : transport_(transport) {}

  /// How the messages from the next one on are framed.
  void set_framing(Framing framing) { framing_ = framing; }

  /// Puts at least one and at most `size` bytes of the message into the buffer; 0: the message is complete, and the
  /// next call begins with the next one. Throws SessionError where the connection ends before that, where a chunk's
  /// header is wrong, and as Transport::read.
  std::size_t read(char *buffer, std::size_t size);

 private:
  std::size_t read_to_mark(char *buffer, std::size_t size);
  std::size_t read_chunk(char *buffer, std::size_t size);
  bool take_header();
  std::size_t take_length(char first);
  char take();
  std::size_t pass_on(std::size_t count, char *buffer);
  void fill();
  std::size_t end_message();
  [[noreturn]] void refuse_header() const;

  Transport &transport_;
  Framing framing_ = Framing::end_of_message;
  bool is_in_message_ = false;
  std::size_t left_ = 0;   ///< bytes of the chunk
  std::string header_;     ///< what was taken of a chunk's header
  std::string_view next_;  ///< what is left of the buffer
  std::array<char, std::size_t{1} << 16> buffer_{};
};

/// The message as it is sent.
std::string framed(std::string_view message, Framing framing);

}  // namespace netconf

#endif
