#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> files_in(const fs::path &place) {
  if (!fs::is_directory(place)) return {place};
  std::vector<fs::path> files;
  for (const fs::directory_entry &entry : fs::directory_iterator(place)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

void replay(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  require(stream.is_open(), "every input can be opened");
  const std::string input{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  // The name of the input that ends the process is the last line.
  std::cout << file.string() << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}

}  // namespace

/// Runs a fuzz target on files and on the files of directories.
int main(int argc, char **argv) {
  std::vector<fs::path> files;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path &file : files_in(argv[i])) files.push_back(file);
  }
  for (const fs::path &file : files) replay(file);
  if (files.empty()) std::cerr << "no input; expected files or directories that hold some\n";
  return files.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
