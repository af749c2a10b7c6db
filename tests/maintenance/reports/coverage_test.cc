#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "element/input/input_error.h"
#include "maintenance/coverage/cell.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string corpus = SOURCE_DIR "/tests/maintenance/reports/corpus";
const std::string all_cells = " --expect " + corpus + "/cells.txt ";
const std::string accepted_example = SOURCE_DIR "/examples/access-two-vpns-two-vlans";

ProcessResult coverage_of(const std::string &arguments) {
  return run_process(vpnval_file() + " coverage " + arguments + " 2>/dev/null");
}

/// A folder for results, gone with the object.
class CoverageFolder {
 public:
  CoverageFolder() { std::filesystem::remove_all(path()); }
  ~CoverageFolder() { std::filesystem::remove_all(path()); }
  CoverageFolder(const CoverageFolder &) = delete;
  CoverageFolder &operator=(const CoverageFolder &) = delete;

  std::string path() const { return testing::TempDir() + "coverage." + std::to_string(::getpid()); }
};

TEST(Coverage, of_our_own_corpus_leaves_no_cell_empty) {
  const ProcessResult result = coverage_of(SOURCE_DIR "/examples " + corpus + all_cells);
  EXPECT_EQ(result.status, 0) << result.output;
}

TEST(Coverage, names_the_cells_that_a_corpus_leaves_empty) {
  const ProcessResult result = coverage_of(accepted_example + all_cells);
  EXPECT_EQ(result.status, 1);
  const std::size_t empty = result.output.find("\nempty cells:\n");
  ASSERT_NE(empty, std::string::npos);
  EXPECT_NE(result.output.find("\n  rule pw-id-twice draws\n", empty), std::string::npos);
  EXPECT_NE(result.output.find("\n  call vpn_peer_valp add_committing_pws maapi_init_cursor 2nd rejected\n", empty),
            std::string::npos);
  EXPECT_EQ(result.output.find("\n  rule pw-id-twice passes\n", empty), std::string::npos);
}

TEST(Coverage, of_a_call_on_which_the_library_ends_its_process_says_stopped) {
  const ProcessResult result = coverage_of(accepted_example + " --format cells");
  EXPECT_NE(result.output.find("call vpn_peer_valp config_validate_peer_exchange cdb_get_objects 1st stopped\n"),
            std::string::npos)
      << result.output;
}

TEST(Coverage, finds_a_commit_that_fills_an_empty_cell) {
  const CoverageFolder folder;
  const std::string cells = folder.path() + ".cells";
  std::ofstream(cells) << "# one rule\n\nrule pw-id-twice draws\n";
  const ProcessResult search =
      coverage_of(accepted_example + " --expect " + cells + " --fill " + folder.path() + " --drawn 400");
  EXPECT_EQ(search.status, 1) << "the corpus itself is as empty as before";
  EXPECT_NE(search.output.find(", found: 1\n"), std::string::npos) << search.output;
  EXPECT_EQ(coverage_of(folder.path() + " --expect " + cells).status, 0);
  std::filesystem::remove(cells);
}

TEST(Coverage, is_a_document_that_fits_its_schema_and_a_page) {
  const CoverageFolder folder;
  std::filesystem::create_directory(folder.path());
  const std::string file = folder.path() + "/document";
  run_process(vpnval_file() + " coverage " + accepted_example + " --format json >" + file);
  EXPECT_EQ(
      run_process("/usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR "/docs/coverage.schema.json " +
                  file)
          .output,
      "1 documents fit\n");
  const std::string page = coverage_of(accepted_example + " --format html").output;
  EXPECT_EQ(page.find("<!DOCTYPE html>"), 0u);
  EXPECT_NE(page.find("<tr><td>pw-id-twice</td><td class=\"empty\">empty</td><td></td>"), std::string::npos);
}

TEST(Coverage, refuses_what_is_no_corpus) {
  EXPECT_EQ(coverage_of("").status, 64);
  EXPECT_EQ(coverage_of("/no/such/folder").status, 66);
  EXPECT_EQ(coverage_of(SOURCE_DIR "/docs/man").status, 65);
}

TEST(Cells, are_read_as_they_are_written) {
  const coverage::Cell call{"", "p", "s", "f", "1st", "rejected"};
  EXPECT_EQ(coverage::cell_from(to_line(call), "file:1"), call);
  const coverage::Cell rule{"r", "", "", "", "", "draws"};
  EXPECT_EQ(coverage::cell_from(to_line(rule), "file:1"), rule);
  try {
    coverage::cell_from("call p s", "file:7");
    FAIL();
  } catch (const element::InputError &error) {
    EXPECT_STREQ(error.what(),
                 "file:7: \"call p s\" is no cell; expected \"rule RULE OUTCOME\" or \"call POINT STEP FUNCTION USE "
                 "OUTCOME\"");
  }
}

}  // namespace
