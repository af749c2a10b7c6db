#ifndef TESTS_SUPPORT_GOLDEN_LINES_H
#define TESTS_SUPPORT_GOLDEN_LINES_H

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

/// Succeeds when the file holds just these lines, in their order. A failure names the file's first line that differs,
/// with both texts. The file is edited by hand: it is what is expected.
inline ::testing::AssertionResult are_lines_of(const std::string &file, const std::vector<std::string> &lines) {
  std::ifstream stream(file);
  if (!stream) return ::testing::AssertionFailure() << file << ": cannot be read";
  std::vector<std::string> golden;
  for (std::string line; std::getline(stream, line);) golden.push_back(line);
  if (golden == lines) return ::testing::AssertionSuccess();

  std::size_t at = 0;
  while (at < golden.size() && at < lines.size() && golden[at] == lines[at]) ++at;
  const auto text = [at](const std::vector<std::string> &all) { return at < all.size() ? all[at] : "(end)"; };
  return ::testing::AssertionFailure() << file << ':' << at + 1 << ":\n  expected: " << text(golden)
                                       << "\n  actual:   " << text(lines);
}

#endif
