#ifndef CLI_TERMINAL_OUTPUT_STREAM_H
#define CLI_TERMINAL_OUTPUT_STREAM_H

#include <array>
#include <cstddef>
#include <ostream>
#include <streambuf>
#include <utility>

#include "cli/terminal/output_file.h"

namespace cli {

/// A result file to write into as into any stream. Writing throws OutputError where the file cannot be written.
class OutputStream : public std::ostream {
 public:
  explicit OutputStream(std::filesystem::path file);

  /// The last call: puts the file in place.
  void publish();

 private:
  class Buffer : public std::streambuf {
   public:
    explicit Buffer(std::filesystem::path name) : file(std::move(name)) { empty(); }

    OutputFile file;

   private:
    int_type overflow(int_type character) override;
    int sync() override;
    void empty() { setp(characters_.data(), characters_.data() + characters_.size()); }

    std::array<char, std::size_t{1} << 14> characters_{};
  };

  Buffer buffer_;
};

}  // namespace cli

#endif
