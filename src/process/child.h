#ifndef PROCESS_CHILD_H
#define PROCESS_CHILD_H

#include <sys/types.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "process/descriptor.h"

namespace process {

/// What a process left behind.
struct Result {
  int exit_status = 0;
  int signal = 0;           ///< that ended it; 0: it ended by itself, with exit_status
  std::string not_started;  ///< why it could not be started; empty: it was
  std::string out;          ///< standard output, whole
  std::string err;          ///< the end of standard error, at most kErrorTail bytes
  double seconds = 0;       ///< from its start until its end was seen; of a batch's processes alone
};

inline constexpr std::size_t kErrorTail = 8192;

enum class Input { empty, written };

/// A process of its own, ended with the object where it still runs.
class Child {
 public:
  /// Starts the program; `arguments` without its name, `mask` the signals that are blocked in it, `input` whether its
  /// standard input is empty or what is written to in(). Throws std::system_error.
  Child(const std::filesystem::path &program, const std::vector<std::string> &arguments, const sigset_t &mask,
        Input input = Input::empty);
  ~Child();
  Child(const Child &) = delete;
  Child &operator=(const Child &) = delete;

  /// Where its standard input is written, a socket; closed where that is empty.
  Descriptor &in() { return in_; }
  /// The descriptors to wait for; closed ones once their end was read.
  const Descriptor &out() const { return out_; }
  const Descriptor &err() const { return err_; }

  /// Takes what stands ready, without waiting where the descriptor is ready.
  void read_out();
  void read_err();
  /// The same into a buffer. 0: there is nothing, or it was the end.
  std::size_t read_out(char *buffer, std::size_t size);
  std::size_t read_err(char *buffer, std::size_t size);

  /// A descriptor that is ready to read when the process has ended, whoever still writes to its output. Throws
  /// std::system_error.
  Descriptor end() const;

  /// Sends the process a signal.
  void send(int signal) const;

  /// Waits for the end of the process, to be called when both descriptors are closed.
  Result finish();

 private:
  pid_t process_ = -1;
  Descriptor in_;
  Descriptor out_;
  Descriptor err_;
  Result result_;
};

}  // namespace process

#endif
