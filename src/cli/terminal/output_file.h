#ifndef CLI_TERMINAL_OUTPUT_FILE_H
#define CLI_TERMINAL_OUTPUT_FILE_H

#include <filesystem>
#include <iosfwd>
#include <string_view>

namespace cli {

/// A result file that is there whole or not at all: written beside its place and moved there at the end; a file that
/// stood there before stays until then. Goes without a trace unless it is put in place. What is no regular file, as a
/// device or a pipe, is written to as it is.
class OutputFile {
 public:
  /// Throws OutputError, as all do, where the file cannot be written.
  explicit OutputFile(std::filesystem::path file);
  ~OutputFile();
  OutputFile(const OutputFile &) = delete;
  OutputFile &operator=(const OutputFile &) = delete;

  void write(std::string_view content);

  /// The last call.
  void publish();

 private:
  [[noreturn]] void fail() const;

  std::filesystem::path file_;
  std::filesystem::path part_;  ///< what is to be moved; empty: nothing
  int descriptor_ = -1;
};

/// Writes the text to the file, there whole or not at all, or to `out` where no file is named. Throws OutputError.
void write_whole(const std::filesystem::path &file, std::ostream &out, std::string_view text);

}  // namespace cli

#endif
