#include "maintenance/cost/child_text.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <exception>
#include <stdexcept>
#include <system_error>

namespace cost {
namespace {

constexpr char kText = 't';
constexpr char kFailure = 'f';

void write_all(int pipe, const std::string &text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = ::write(pipe, text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
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

[[noreturn]] void run_child(int pipe, const std::function<std::string()> &make) {
  std::string text;
  try {
    text = kText + make();
  } catch (const std::exception &error) {
    text = std::string(1, kFailure) + error.what();
  }
  write_all(pipe, text);
  ::_exit(0);
}

}  // namespace

std::string text_of_child(const std::function<std::string()> &make) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    run_child(ends[1], make);
  }
  ::close(ends[1]);
  const std::string text = child < 0 ? "" : read_all(ends[0]);
  ::close(ends[0]);
  int status = 0;
  while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (text.empty()) throw std::runtime_error("the library ended the process that asked it");
  if (text.front() == kFailure) throw std::runtime_error(text.substr(1));
  return text.substr(1);
}

}  // namespace cost
