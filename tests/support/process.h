#ifndef TESTS_SUPPORT_PROCESS_H
#define TESTS_SUPPORT_PROCESS_H

#include <sys/wait.h>

#include <cstdio>
#include <stdexcept>
#include <string>

/// What a finished process left: its exit status, -1 where a signal ended it, and its standard output.
struct ProcessResult {
  int status = -1;
  std::string output;
};

/// Runs a shell command to its end.
inline ProcessResult run_process(const std::string &command) {
  ProcessResult result;
  FILE *pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) result.output.append(buffer, n);
  const int status = pclose(pipe);
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

#endif
