#include "maintenance/cost/child_text.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <exception>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace cost {
namespace {

// Characters that no text has.
constexpr char kEnd = '\x03';
constexpr char kFailure = '\x15';

void write_all(int pipe, const std::string &text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = ::write(pipe, text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
}

/// A library that ends its process is expected here: its last words and its core dump are not kept.
void silence() {
  const rlimit none{0, 0};
  ::setrlimit(RLIMIT_CORE, &none);
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0) ::dup2(nowhere, STDERR_FILENO);
}

std::string read_all(int pipe) {
  std::string text;
  std::array<char, 65536> part{};
  for (;;) {
    const ssize_t count = ::read(pipe, part.data(), part.size());
    if (count == 0 || (count < 0 && errno != EINTR)) return text;
    if (count > 0) text.append(part.data(), static_cast<std::size_t>(count));
  }
}

[[noreturn]] void run_child(int pipe, const std::function<void(const Write &)> &make) {
  std::string end;
  try {
    make([pipe](const std::string &text) { write_all(pipe, text); });
    end = kEnd;
  } catch (const std::exception &error) {
    end = kFailure + std::string(error.what());
  }
  write_all(pipe, end);
  ::_exit(0);
}

void wait_for(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
}

/// A child's output with what stands at its end: kEnd, kFailure and a text, or nothing where it died.
std::string raw_output(const std::function<void(const Write &)> &make, bool is_silent) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  const pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) {
    ::close(ends[0]);
    if (is_silent) silence();
    run_child(ends[1], make);
  }
  ::close(ends[1]);
  std::string text = read_all(ends[0]);
  ::close(ends[0]);
  wait_for(child);
  return text;
}

ChildOutput parted(std::string raw) {
  if (raw.ends_with(kEnd)) {
    raw.pop_back();
    return {std::move(raw), false};
  }
  const std::size_t failure = raw.rfind(kFailure);
  if (failure != std::string::npos) throw std::runtime_error(raw.substr(failure + 1));
  return {std::move(raw), true};
}

}  // namespace

std::string text_of_child(const std::function<std::string()> &make) {
  ChildOutput output = parted(raw_output([&make](const Write &write) { write(make()); }, false));
  if (output.has_died) throw std::runtime_error("the library ended the process that asked it");
  return std::move(output.text);
}

ChildOutput output_of_child(const std::function<void(const Write &)> &make) { return parted(raw_output(make, true)); }

}  // namespace cost
