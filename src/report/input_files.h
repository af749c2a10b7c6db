#ifndef REPORT_INPUT_FILES_H
#define REPORT_INPUT_FILES_H

#include <filesystem>
#include <vector>

#include "element/input/configuration_source.h"

namespace report {

/// The three files that make up a commit, named as the user or the folder names them.
struct InputFiles {
  std::filesystem::path element;
  std::filesystem::path running;    ///< empty: nothing is in force
  std::filesystem::path candidate;  ///< or the last edit
  std::vector<std::filesystem::path>
      edits{};  ///< in their order: what makes the candidate of the running configuration
};

/// What is known of the files of a commit's configurations, once they were read.
struct InputSources {
  element::ConfigurationSource running;
  element::ConfigurationSource candidate;
};

}  // namespace report

#endif
