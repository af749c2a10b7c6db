#include "tests/maintenance/recording/recorder_folder.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/build_under_test.h"

namespace fs = std::filesystem;

RecorderFolder::RecorderFolder(const fs::path &library, bool has_recordings) {
  std::string name = (fs::temp_directory_path() / "recorder-XXXXXX").string();
  path_ = ::mkdtemp(name.data());
  fs::copy_file(recorder_file(), this->library());
  if (!library.empty()) fs::copy_file(library, path_ / "libconfig_validate_vpn.real.so");
  if (has_recordings) fs::create_directory(recordings_folder());
}

RecorderFolder::~RecorderFolder() { fs::remove_all(path_); }

std::vector<fs::path> RecorderFolder::recordings() const {
  std::vector<fs::path> files;
  for (const auto &entry : fs::directory_iterator(recordings_folder())) {
    if (entry.path().extension() == ".vpnrec") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

void RecorderFolder::remove_recordings() const {
  for (const fs::path &file : recordings()) fs::remove(file);
}

std::string RecorderFolder::status() const {
  std::ifstream stream(recordings_folder() / "status");
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> told_apart(const std::function<std::vector<std::string>()> &ask) {
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) return {"no pipe"};
  const pid_t child = ::fork();
  if (child == 0) {
    std::string text;
    for (const std::string &line : ask()) text += line + '\n';
    const bool is_written = ::write(pipe[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::_exit(is_written ? 0 : 1);
  }
  ::close(pipe[1]);
  std::string text;
  std::array<char, 4096> part;
  for (ssize_t size = 0; (size = ::read(pipe[0], part.data(), part.size())) > 0;) {
    text.append(part.data(), static_cast<std::size_t>(size));
  }
  ::close(pipe[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  if (status != 0) lines.push_back("the process ended with status " + std::to_string(status));
  return lines;
}
