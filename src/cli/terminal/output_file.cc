#include "cli/terminal/output_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ostream>
#include <system_error>
#include <utility>

#include "cli/command_line/errors.h"

namespace cli {

namespace {

/// A device or a pipe, which no file may take the place of.
bool is_special(const std::filesystem::path &file) {
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(file, unknown);
  return std::filesystem::is_other(status);
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path file) : file_(std::move(file)) {
  if (is_special(file_)) {
    descriptor_ = open(file_.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor_ < 0) fail();
    return;
  }
  std::filesystem::path part = file_;
  part += fmt::format(".part-{}", getpid());
  descriptor_ = open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor_ < 0) fail();
  part_ = std::move(part);
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) close(descriptor_);
  if (!part_.empty()) unlink(part_.c_str());
}

void OutputFile::write(std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor_, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) fail();
    content.remove_prefix(static_cast<std::size_t>(written));
  }
}

void OutputFile::publish() {
  if (close(std::exchange(descriptor_, -1)) != 0) fail();
  if (part_.empty()) return;
  if (std::rename(part_.c_str(), file_.c_str()) != 0) fail();
  part_.clear();
}

void OutputFile::fail() const {
  const int error = errno;
  throw OutputError(fmt::format("{}: cannot be written: {}", file_.string(), std::generic_category().message(error)));
}

void write_whole(const std::filesystem::path &file, std::ostream &out, std::string_view text) {
  if (file.empty()) {
    out << text;
    return;
  }
  OutputFile output(file);
  output.write(text);
  output.publish();
}

}  // namespace cli
