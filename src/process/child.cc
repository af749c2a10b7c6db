#include "process/child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace process {
namespace {

void require(int error, const char *what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

struct Pipe {
  Descriptor read;
  Descriptor write;

  Pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) require(errno, "pipe");
    read = Descriptor(ends[0]);
    write = Descriptor(ends[1]);
  }
};

/// For a standard input: unlike a pipe, it can be written without a signal where its reader is gone.
struct SocketPair {
  Descriptor read;
  Descriptor write;

  SocketPair() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) require(errno, "socketpair");
    read = Descriptor(ends[0]);
    write = Descriptor(ends[1]);
  }
};

/// What a child does before it becomes the program.
class Preparation {
 public:
  /// `in`: closed for an empty standard input.
  Preparation(const Descriptor &in, const Pipe &out, const Pipe &err, const sigset_t &mask) {
    require(posix_spawn_file_actions_init(&actions_), "posix_spawn");
    require(posix_spawnattr_init(&attributes_), "posix_spawn");
    if (in.is_open()) {
      require(posix_spawn_file_actions_adddup2(&actions_, in.number(), STDIN_FILENO), "posix_spawn");
    } else {
      require(posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0), "posix_spawn");
    }
    require(posix_spawn_file_actions_adddup2(&actions_, out.write.number(), STDOUT_FILENO), "posix_spawn");
    require(posix_spawn_file_actions_adddup2(&actions_, err.write.number(), STDERR_FILENO), "posix_spawn");
    require(posix_spawnattr_setsigmask(&attributes_, &mask), "posix_spawn");
    require(posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK), "posix_spawn");
  }
  ~Preparation() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  Preparation(const Preparation &) = delete;
  Preparation &operator=(const Preparation &) = delete;

  const posix_spawn_file_actions_t *actions() const { return &actions_; }
  const posix_spawnattr_t *attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

/// Takes what stands ready; closes the descriptor at the end of what there is to read.
std::size_t read_some(Descriptor &descriptor, char *buffer, std::size_t size) {
  const ssize_t count = read(descriptor.number(), buffer, size);
  if (count < 0 && errno == EINTR) return 0;
  if (count <= 0) descriptor.close();
  return count <= 0 ? 0 : static_cast<std::size_t>(count);
}

/// Appends what stands ready.
void read_into(std::string &text, Descriptor &descriptor) {
  std::array<char, std::size_t{1} << 16> chunk{};
  text.append(chunk.data(), read_some(descriptor, chunk.data(), chunk.size()));
}

int wait_for(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace

Child::Child(const std::filesystem::path &program, const std::vector<std::string> &arguments, const sigset_t &mask,
             Input input) {
  std::optional<SocketPair> in;
  if (input == Input::written) in.emplace();
  Pipe out;
  Pipe err;
  const Preparation preparation(in ? in->read : in_, out, err, mask);
  std::string name = program.string();
  std::vector<std::string> texts = arguments;
  std::vector<char *> argv{name.data()};
  for (std::string &text : texts) argv.push_back(text.data());
  argv.push_back(nullptr);
  require(posix_spawn(&process_, name.c_str(), preparation.actions(), preparation.attributes(), argv.data(), environ),
          name.c_str());
  if (in) in_ = std::move(in->write);
  out_ = std::move(out.read);
  err_ = std::move(err.read);
}

Child::~Child() {
  if (process_ < 0) return;
  kill(process_, SIGKILL);
  wait_for(process_);
}

void Child::read_out() { read_into(result_.out, out_); }

std::size_t Child::read_out(char *buffer, std::size_t size) { return read_some(out_, buffer, size); }

std::size_t Child::read_err(char *buffer, std::size_t size) { return read_some(err_, buffer, size); }

Descriptor Child::end() const {
  Descriptor end(static_cast<int>(syscall(SYS_pidfd_open, process_, 0)));
  if (!end.is_open()) require(errno, "pidfd_open");
  return end;
}

void Child::send(int signal) const {
  if (process_ >= 0) kill(process_, signal);
}

void Child::read_err() {
  read_into(result_.err, err_);
  if (result_.err.size() > kErrorTail) result_.err.erase(0, result_.err.size() - kErrorTail);
}

Result Child::finish() {
  const int status = wait_for(std::exchange(process_, -1));
  if (WIFSIGNALED(status)) {
    result_.signal = WTERMSIG(status);
  } else {
    result_.exit_status = WEXITSTATUS(status);
  }
  return std::move(result_);
}

}  // namespace process
