#ifndef CLI_TERMINAL_OUTPUT_FOLDER_H
#define CLI_TERMINAL_OUTPUT_FOLDER_H

#include <filesystem>

namespace cli {

/// A result folder that is there whole or not at all: filled beside its place and moved there at the end. Nothing that
/// stood there before is overwritten. Goes without a trace unless it is put in place.
class OutputFolder {
 public:
  /// Throws OutputError, as all do, where the folder cannot be made or something else than an empty folder stands
  /// there.
  explicit OutputFolder(std::filesystem::path folder);
  ~OutputFolder();
  OutputFolder(const OutputFolder &) = delete;
  OutputFolder &operator=(const OutputFolder &) = delete;

  /// Where to fill it.
  const std::filesystem::path &part() const { return part_; }

  /// Where it will be.
  const std::filesystem::path &folder() const { return folder_; }

  /// The last call.
  void publish();

 private:
  [[noreturn]] void fail(const std::error_code &error) const;

  std::filesystem::path folder_;
  std::filesystem::path part_;
};

}  // namespace cli

#endif
