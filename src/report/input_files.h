#ifndef REPORT_INPUT_FILES_H
#define REPORT_INPUT_FILES_H

#include <filesystem>

#include "element/input/configuration_text.h"

namespace report {

/// The three files that make up a commit, named as the user or the folder names them.
struct InputFiles {
  std::filesystem::path element;
  std::filesystem::path running;
  std::filesystem::path candidate;
};

/// The configurations of a commit as they were read from their files.
struct InputTexts {
  element::ConfigurationText running;
  element::ConfigurationText candidate;
};

}  // namespace report

#endif
