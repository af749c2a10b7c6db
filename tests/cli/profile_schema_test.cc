// The schema of element profiles that ships, beside the reader.

#include <gtest/gtest.h>

#include <fstream>

#include "element/input/input_error.h"
#include "element/profile/profile.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/process.h"

namespace {

ProcessResult fits(const std::string &documents) {
  return run_process("/usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR
                     "/docs/element.schema.json " +
                     documents + " 2>&1");
}

bool is_read(const std::string &text) {
  try {
    element::parse_profile(text, "element.json");
    return true;
  } catch (const element::InputError &) {
    return false;
  }
}

TEST(ProfileSchema, every_profile_of_an_example_fits) {
  const ProcessResult result = fits(SOURCE_DIR "/examples/*/element.json " SOURCE_DIR "/docs/map-example/element.json");
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_TRUE(result.output.ends_with(" documents fit\n")) << result.output;
}

TEST(ProfileSchema, takes_what_the_reader_takes_and_nothing_else) {
  const std::string port = R"("interfaces": [{"name": "a", "logical-id": 0, "ifindex": 1}])";
  const auto interface = [](const std::string &members) { return R"({"interfaces": [{)" + members + "}]}"; };
  const std::vector<std::string> profiles{
      "{" + port + "}",
      R"({"card": {}, )" + port + "}",
      R"({"card": {"vpn-max": 4294967295, "access-ports": 0}, )" + port + "}",
      R"({"card": {"vpn-max": 4294967296}, )" + port + "}",
      R"({"card": {"vpn-max": -1}, )" + port + "}",
      R"({"card": {"vpn-max": "1"}, )" + port + "}",
      R"({"card": {"vpn-min": 1}, )" + port + "}",
      R"({"card": null, )" + port + "}",
      R"({"interfaces": []})",
      "{}",
      "[]",
      R"({"name": "x", )" + port + "}",
      interface(R"("name": "", "logical-id": 0, "ifindex": 1)"),
      interface(R"("name": ")" + std::string(63, 'x') + R"(", "logical-id": 0, "ifindex": 1)"),
      interface(R"("name": ")" + std::string(64, 'x') + R"(", "logical-id": 0, "ifindex": 1)"),
      interface(R"("name": "a", "logical-id": 4294967295, "ifindex": 2147483647)"),
      interface(R"("name": "a", "logical-id": 4294967296, "ifindex": 1)"),
      interface(R"("name": "a", "logical-id": 1, "ifindex": 0)"),
      interface(R"("name": "a", "logical-id": 1, "ifindex": 2147483648)"),
      interface(R"("name": "a", "logical-id": 1)"),
      interface(R"("name": "a", "logical-id": 1, "ifindex": 1, "type": "port")")};
  const CommitFolder folder;
  std::string refused;
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    const std::string file = folder.file("profile-" + std::to_string(100 + i));
    folder.write("profile-" + std::to_string(100 + i), profiles[i]);
    if (!is_read(profiles[i])) refused += file + "\n";
  }
  const ProcessResult result = fits(folder.file("profile-*") + " | sed -n 's/^\\([^:]*\\): .*/\\1/p' | uniq");
  EXPECT_EQ(result.output, refused);
}

}  // namespace
