// What the documents show of the program is what it prints.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

TEST(ConsoleBlocks, of_the_documents_show_what_the_program_prints) {
  const ProcessResult result =
      run_process("cd " SOURCE_DIR " && /usr/bin/python3 tests/commits/console_blocks.py " + vpnval_file() +
                  " . README.md docs/*.md docs/rules/*.md examples/README.md CONTRIBUTING.md 2>&1");
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.output.ends_with(" blocks hold\n")) << result.output;
  EXPECT_GT(std::atoi(result.output.c_str()), 5) << result.output;
}

TEST(ConsoleBlocks, that_show_something_else_are_found) {
  const ProcessResult result = run_process(
      "cd $(mktemp -d) && mkdir examples tools && printf 'A:\\n\\n    $ vpnval version\\n    vpnval 0.0.0\\n"
      "    $ false\\n    $ echo $?\\n    1\\n' >a.md && /usr/bin/python3 " SOURCE_DIR
      "/tests/commits/console_blocks.py " +
      vpnval_file() + " . a.md; rm -r \"$PWD\"");
  EXPECT_EQ(result.output.find("a.md:3: $ vpnval version\nprints\nvpnval "), 0u) << result.output;
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '$'), 1) << result.output;
}

}  // namespace
