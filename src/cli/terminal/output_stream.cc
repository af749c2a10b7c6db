#include "cli/terminal/output_stream.h"

namespace cli {

OutputStream::OutputStream(std::filesystem::path file) : std::ostream(nullptr), buffer_(std::move(file)) {
  rdbuf(&buffer_);
  // A stream hands on what its buffer throws only where it is told to.
  exceptions(std::ios::badbit);
}

void OutputStream::publish() {
  flush();
  buffer_.file.publish();
}

OutputStream::Buffer::int_type OutputStream::Buffer::overflow(int_type character) {
  sync();
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  return sputc(traits_type::to_char_type(character));
}

int OutputStream::Buffer::sync() {
  file.write({pbase(), static_cast<std::size_t>(pptr() - pbase())});
  empty();
  return 0;
}

}  // namespace cli
