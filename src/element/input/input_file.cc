#include "element/input/input_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "element/input/input_error.h"

namespace element {
namespace {

[[noreturn]] void throw_file_error(const std::filesystem::path &file) {
  const std::string reason = std::generic_category().message(errno);
  throw FileError(fmt::format("{}: cannot be read: {}; expected a readable file", file.string(), reason));
}

}  // namespace

InputFile::InputFile(std::filesystem::path name)
    : name_(std::move(name)), stream_(name_ == kStandardInput ? stdin : std::fopen(name_.c_str(), "rb")) {
  if (!stream_) throw_file_error(name_);
}

std::size_t InputFile::read(char *buffer, std::size_t size) {
  const std::size_t count = std::fread(buffer, 1, size, stream_.get());
  if (count == 0 && std::ferror(stream_.get()) != 0) throw_file_error(name_);
  return count;
}

}  // namespace element
