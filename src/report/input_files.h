#ifndef REPORT_INPUT_FILES_H
#define REPORT_INPUT_FILES_H

#include <filesystem>

namespace report {

/// The three files that make up a commit, named as the user or the folder names them.
struct InputFiles {
  std::filesystem::path element;
  std::filesystem::path running;
  std::filesystem::path candidate;
};

}  // namespace report

#endif
