#ifndef ELEMENT_INPUT_INPUT_FILE_H
#define ELEMENT_INPUT_INPUT_FILE_H

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace element {

/// The name that stands for standard input.
inline constexpr const char *kStandardInput = "-";

/// A file, or a pipe, that is read from begin to end.
class InputFile {
 public:
  /// "-" is standard input. Throws FileError if the file cannot be opened.
  explicit InputFile(std::filesystem::path name);

  const std::filesystem::path &name() const { return name_; }

  /// Reads at most `size` bytes; 0 at the end. Throws FileError.
  std::size_t read(char *buffer, std::size_t size);

 private:
  struct Close {
    void operator()(std::FILE *file) const {
      if (file != stdin) std::fclose(file);
    }
  };

  std::filesystem::path name_;
  std::unique_ptr<std::FILE, Close> stream_;
};

}  // namespace element

#endif
