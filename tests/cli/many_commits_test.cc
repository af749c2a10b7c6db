// The worked example of docs/many-commits.md: chunks of a list of commits, decided anywhere, and summed up.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const std::string options = "--budget 500 --fail-on-warn";

class ManyCommits : public testing::Test {
 protected:
  ProcessResult run(const std::string &script) const {
    return run_process("exec 2>&1; cd " + folder_.path() + " && export VPNVAL=" + vpnval_file() +
                       " PATH=" SOURCE_DIR "/tools:$PATH; " + script);
  }

  /// Three chunks of examples, one of which names a folder that is not there.
  void make_chunks() const {
    ASSERT_EQ(
        run("mkdir chunks results; { ls -d " SOURCE_DIR "/examples/access-*; echo no-such-folder; } > commits.txt; "
            "split -d -a 4 -l 8 commits.txt chunks/")
            .output,
        "");
  }

  json file(const std::string &name) const {
    std::ifstream stream(folder_.file(name));
    return json::parse(stream);
  }

  CommitFolder folder_;
};

TEST_F(ManyCommits, chunks_sum_up_to_what_one_run_over_all_gives) {
  make_chunks();
  const ProcessResult spread =
      run("parallel -j 2 decide_chunk {} results/{/}.json " + options + " ::: chunks/* && ls results");
  EXPECT_EQ(spread.output, "0000.json\n0001.json\n0002.json\n");
  run("jq -n -f " SOURCE_DIR "/tools/sum_up.jq results/*.json > sum.json; xargs $VPNVAL check --format json " +
      options + " < commits.txt 2>/dev/null > all.json");
  json at_once = file("all.json")["summary"];
  at_once.erase("unused-suppressions");
  EXPECT_EQ(file("sum.json"), at_once);
  EXPECT_EQ(at_once["not-decided"], 1);
}

TEST_F(ManyCommits, a_job_with_indexes_sums_up_to_what_one_run_over_all_gives) {
  make_chunks();
  const ProcessResult tasks =
      run("for i in 0 1; do JOB_COMPLETION_INDEX=$i decide_indexed . " + options +
          " || exit; done; SLURM_ARRAY_TASK_ID=2 decide_indexed . " + options + " && ls results");
  EXPECT_EQ(tasks.output, "0000.json\n0001.json\n0002.json\n");
  run("jq -n -f " SOURCE_DIR "/tools/sum_up.jq results/*.json > sum.json; xargs $VPNVAL check --format json " +
      options + " < commits.txt 2>/dev/null > all.json");
  json at_once = file("all.json")["summary"];
  at_once.erase("unused-suppressions");
  EXPECT_EQ(file("sum.json"), at_once);
}

TEST_F(ManyCommits, a_task_without_index_or_chunk_fails) {
  make_chunks();
  EXPECT_EQ(run("decide_indexed .").status, 64);
  EXPECT_EQ(run("JOB_COMPLETION_INDEX= decide_indexed .").status, 64);
  const ProcessResult beyond = run("JOB_COMPLETION_INDEX=3 decide_indexed .");
  EXPECT_EQ(beyond.status, 66);
  EXPECT_EQ(beyond.output, "decide_indexed: ./chunks/0003: no such chunk\n");
}

TEST_F(ManyCommits, the_worst_status_is_kept_whatever_the_order) {
  const auto result = [](int status) {
    return R"({"summary": {"commits": 1, "accepted": 0, "accepted-with-warnings": 0, "rejected": 1, "not-decided": 0, )"
           R"("findings": [], "status": )" +
           std::to_string(status) + "}}";
  };
  const std::vector<int> ascending{0, 2, 4, 1, 3, 64, 65, 70};
  for (std::size_t i = 1; i < ascending.size(); ++i) {
    folder_.write("better", result(ascending[i - 1]));
    folder_.write("worse", result(ascending[i]));
    for (const std::string order : {"better worse", "worse better"}) {
      run("jq -n -f " SOURCE_DIR "/tools/sum_up.jq " + order + " > sum");
      EXPECT_EQ(file("sum")["status"], ascending[i]) << order;
    }
  }
}

TEST_F(ManyCommits, a_chunk_that_has_its_result_is_not_decided_again) {
  make_chunks();
  EXPECT_EQ(run("decide_chunk chunks/0000 results/0000.json").status, 0);
  const ProcessResult again = run("VPNVAL=/no/such/program decide_chunk chunks/0000 results/0000.json");
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.output, "");
}

TEST_F(ManyCommits, what_breaks_off_leaves_no_result) {
  make_chunks();
  folder_.write("breaks-off", "#!/bin/sh\necho '{\"summary\"'; echo last words >&2; kill -KILL $$\n");
  const ProcessResult result =
      run("chmod +x breaks-off; VPNVAL=./breaks-off decide_chunk chunks/0000 results/0000.json");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("last words\ndecide_chunk: chunks/0000: no result, vpnval ended with status 137\n"),
            std::string::npos)
      << result.output;
  EXPECT_EQ(run("ls results").output, "");
}

TEST_F(ManyCommits, a_host_without_the_library_gives_no_result) {
  make_chunks();
  const ProcessResult result = run("decide_chunk chunks/0000 results/0000.json --plugin /no/such/library.so");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(run("ls results").output, "");
}

TEST_F(ManyCommits, few_descriptors_make_fewer_jobs_and_leave_no_commit_undecided) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizers' check of an object's type needs a pipe: it stops the program where none is left";
#endif
  const ProcessResult result =
      run("ulimit -n 64; for i in $(seq 100); do echo " SOURCE_DIR
          "/examples/vpn-count-at-limit; done | xargs $VPNVAL check --budget 0 --jobs 100 --format json 2>/dev/null | "
          "jq -c '.summary | [.accepted, .[\"not-decided\"]]'");
  EXPECT_EQ(result.output, "[100,0]\n");
}

}  // namespace
