#ifndef CLI_TERMINAL_WRAPPED_STREAM_H
#define CLI_TERMINAL_WRAPPED_STREAM_H

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>

namespace cli {

/// Text for a terminal of so many columns: lines that are longer are broken at blanks, and what follows is indented two
/// further than the line. A word that is longer than a line stays whole. Columns 0: text goes through as it is. A line
/// is written when it ends, and what is begun with the object.
class WrappedStream : public std::ostream {
 public:
  WrappedStream(std::ostream &target, std::size_t columns);
  ~WrappedStream() override;
  WrappedStream(const WrappedStream &) = delete;
  WrappedStream &operator=(const WrappedStream &) = delete;

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer(std::ostream &out, std::size_t columns) : out_(out), columns_(columns) {}
    void write_line();

   private:
    int_type overflow(int_type character) override;
    int sync() override;

    std::ostream &out_;
    std::size_t columns_;
    std::string line_;
  };

  Buffer buffer_;
};

}  // namespace cli

#endif
