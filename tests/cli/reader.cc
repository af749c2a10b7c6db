#include "tests/cli/reader.h"

#include "source_dir.h"

ProcessResult run_reader(const std::string &script, const std::string &arguments) {
  return run_process("/usr/bin/python3 " SOURCE_DIR "/tests/cli/" + script + " " + arguments + " 2>&1");
}
