// vpnval shrink as a user runs it.

#include <gtest/gtest.h>
#include <stdlib.h>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

TEST(ShrinkCommand, writes_an_example_that_draws_the_same_words) {
  std::string name = (fs::temp_directory_path() / "vpnval-shrink-XXXXXX").string();
  const std::string folder = mkdtemp(name.data());
  const std::string example = SOURCE_DIR "/examples/pw-id-moved-to-another-vpn";
  const ProcessResult shrunk = run_process(vpnval_file() + " shrink " + example + " -o " + folder + "/found");
  EXPECT_EQ(shrunk.status, 0);
  EXPECT_EQ(shrunk.output.find("rejected [pw-id-moved] by vpn_peer_valp: The PW ID 102 was formerly assigned"), 0U);
  EXPECT_NE(shrunk.output.find("\nshrunk from 11 nodes to 7, "), std::string::npos) << shrunk.output;
  EXPECT_NE(shrunk.output.find("\nwritten to " + folder + "/found\n"), std::string::npos) << shrunk.output;
  const std::string rejected = "sed -n 's/.*rejected: The/The/p'";
  const std::string check = vpnval_file() + " check --budget 0 ";
  EXPECT_EQ(run_process(check + folder + "/found | " + rejected).output,
            run_process(check + example + " | " + rejected).output);
  EXPECT_TRUE(fs::exists(folder + "/found/story.txt"));
  fs::remove_all(folder);
}

TEST(ShrinkCommand, a_commit_without_words_is_an_error) {
  const ProcessResult result = run_process(vpnval_file() + " shrink " SOURCE_DIR "/examples/vpn-count-at-limit 2>&1");
  EXPECT_EQ(result.status, 65);
  EXPECT_NE(result.output.find("accepted without a word; expected one that draws a message"), std::string::npos);
}

}  // namespace
