#include "cli/workers/commit_result.h"

#include <gtest/gtest.h>

#include <csignal>

#include "tests/cli/commit_folder.h"

namespace {

using cli::ExitStatus;
using process::Result;
using report::CommitResult;

Result ended(int status, const std::string &out, const std::string &err) {
  Result left;
  left.exit_status = status;
  left.out = out;
  left.err = err;
  return left;
}

Result stopped(int signal, const std::string &err) {
  Result left = ended(0, "", err);
  left.signal = signal;
  return left;
}

Result not_started(const std::string &why) {
  Result left;
  left.not_started = why;
  return left;
}

TEST(CommitResult, of_a_process_that_decided_is_its_verdict) {
  const CommitFolder folder;
  const std::string document = run_with_answers({"check", "--format=json", folder.path()}).out;
  for (const auto status : {ExitStatus::accepted, ExitStatus::rejected, ExitStatus::accepted_with_warnings}) {
    const CommitResult result =
        cli::commit_result("north", ended(static_cast<int>(status), document, "text for people\n"));
    EXPECT_EQ(result.commit.name, "north");
    EXPECT_EQ(result.commit.decision, host::Decision::accepted);
    EXPECT_EQ(result.commit.error, "");
    EXPECT_EQ(result.exit_status, static_cast<int>(status));
    EXPECT_EQ(result.verdict, verdict_in(document));
  }
}

TEST(CommitResult, of_any_other_process_is_an_error) {
  struct Row {
    Result left;
    ExitStatus status;
    std::string error;
  };
  const std::string assertion = "vlan.cc:3: read: Assertion `type' failed.";
  const std::vector<Row> rows{
      {ended(65, "", "vpnval: running.xml:3: no such node\n"), ExitStatus::bad_input, "running.xml:3: no such node"},
      {ended(66, "", "text for people\nvpnval: element.json: gone\n"), ExitStatus::unreadable_file,
       "element.json: gone"},
      {ended(70, "{}", ""), ExitStatus::internal, "ended with status 70"},
      {ended(127, "", "vpnval: error while loading shared libraries\n"), ExitStatus::internal,
       "error while loading shared libraries"},
      {ended(0, "", ""), ExitStatus::internal,
       "no result of schema version 3: [json.exception.parse_error.101] parse error at line 1, column 1: syntax error "
       "while parsing value - unexpected end of input; expected '[', '{', or a literal"},
      {ended(1, "{\"schema-version\": 1}", ""), ExitStatus::internal, "schema-version 1; expected 3"},
      {stopped(SIGABRT, "changes: 1\n\n" + assertion + "\n"), ExitStatus::internal,
       "stopped by signal SIGABRT: " + assertion},
      {stopped(SIGKILL, "changes: 1\n"), ExitStatus::internal, "stopped by signal SIGKILL"},
      {stopped(SIGRTMIN + 1, ""), ExitStatus::internal, "stopped by signal " + std::to_string(SIGRTMIN + 1)},
      {not_started("/bin/vpnval: Cannot allocate memory"), ExitStatus::internal, "/bin/vpnval: Cannot allocate memory"},
  };
  for (const Row &row : rows) {
    const CommitResult result = cli::commit_result("north", row.left);
    EXPECT_EQ(result.commit.error, row.error);
    EXPECT_EQ(result.commit.decision, std::nullopt) << row.error;
    EXPECT_EQ(result.commit.name, "north") << row.error;
    EXPECT_EQ(result.exit_status, static_cast<int>(row.status)) << row.error;
    EXPECT_EQ(result.verdict, "") << row.error;
  }
}

TEST(CommitResult, of_a_process_that_tells_why_it_failed_has_file_and_line) {
  const CommitFolder folder;
  folder.write("candidate.json", "{\n\"mpls:mpls\": {\"no-such\": 1}}");
  Result left = ended(65, run_with_answers({"check", "--format=json", "--quiet", folder.path()}).out, "");
  left.seconds = 2.5;
  const CommitResult result = cli::commit_result("north", left);
  EXPECT_EQ(result.commit.name, "north");
  EXPECT_EQ(result.commit.error.find(folder.file("candidate.json") + ":2: "), 0u) << result.commit.error;
  EXPECT_EQ(to_text(result.commit.error_place), folder.file("candidate.json") + ":2");
  EXPECT_EQ(result.commit.seconds, 2.5);
  EXPECT_EQ(result.exit_status, 65);
}

TEST(CommitResult, of_a_process_that_a_signal_ended_is_no_verdict_whatever_it_printed) {
  const CommitFolder folder;
  Result left = stopped(SIGSEGV, "");
  left.out = run_with_answers({"check", "--format=json", folder.path()}).out;
  EXPECT_EQ(cli::commit_result("north", left).commit.error, "stopped by signal SIGSEGV");
}

}  // namespace
