#ifndef TESTS_SUPPORT_FILE_CONTENT_H
#define TESTS_SUPPORT_FILE_CONTENT_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// The whole content of a file; empty where it cannot be read.
inline std::string content_of(const std::filesystem::path &file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

#endif
