#include "process/batch.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <stdexcept>

#include "process/interrupts.h"

namespace {

using process::Result;

/// A batch of shell scripts.
process::Batch scripts(const std::vector<std::string> &texts, std::size_t jobs = 2) {
  process::Batch batch{"/bin/sh", {}, jobs};
  for (const std::string &text : texts) batch.arguments.push_back({"-c", text});
  return batch;
}

std::vector<Result> results_of(const process::Batch &batch) {
  std::vector<Result> results(batch.arguments.size());
  process::run_all(batch,
                   {[&results](std::size_t index, Result result) { results[index] = std::move(result); }, [] {}});
  return results;
}

bool has_children() { return waitpid(-1, nullptr, WNOHANG) >= 0; }

/// A process that runs until the file is there.
std::string until(const std::string &file) { return "while [ ! -e " + file + " ]; do sleep 0.01; done"; }

TEST(Batch, gathers_what_each_process_leaves) {
  const std::vector<Result> results =
      results_of(scripts({"echo first", "echo second; echo fault >&2; exit 3", "kill -ABRT $$", "cat"}));
  EXPECT_EQ(results[0].out, "first\n");
  EXPECT_EQ(results[0].exit_status, 0);
  EXPECT_EQ(results[1].out, "second\n");
  EXPECT_EQ(results[1].err, "fault\n");
  EXPECT_EQ(results[1].exit_status, 3);
  EXPECT_EQ(results[1].signal, 0);
  EXPECT_EQ(results[2].signal, SIGABRT);
  EXPECT_EQ(results[3].out, "");
}

TEST(Batch, of_nothing_is_done) { EXPECT_TRUE(results_of(scripts({})).empty()); }

TEST(Batch, arguments_arrive_as_they_are) {
  process::Batch batch = scripts({R"(printf '<%s>' "$@")"});
  batch.arguments[0].insert(batch.arguments[0].end(), {"name", "a b", "", "'\"$x", "\n"});
  EXPECT_EQ(results_of(batch)[0].out, "<a b><><'\"$x><\n>");
}

TEST(Batch, keeps_all_of_the_output_and_the_end_of_the_errors) {
  const std::vector<Result> results =
      results_of(scripts({"head -c 1000000 /dev/zero; head -c 1000000 /dev/zero >&2; echo last >&2"}));
  EXPECT_EQ(results[0].out.size(), 1'000'000u);
  EXPECT_EQ(results[0].err.size(), process::kErrorTail);
  EXPECT_TRUE(results[0].err.ends_with("last\n"));
}

TEST(Batch, what_cannot_be_started_is_a_result) {
  process::Batch batch = scripts({"true", "true"});
  batch.program = "/no/such/program";
  for (const Result &result : results_of(batch)) {
    EXPECT_EQ(result.not_started, "/no/such/program: No such file or directory");
  }
}

// Each of the two waits for what the other does: they end only when both run.
TEST(Batch, runs_as_many_at_once_as_it_may) {
  const std::string directory = testing::TempDir() + "batch-" + std::to_string(getpid());
  ASSERT_EQ(mkdir(directory.c_str(), 0700), 0);
  const std::string a = directory + "/a";
  const std::string b = directory + "/b";
  const std::vector<Result> results =
      results_of(scripts({": >" + a + "; " + until(b) + "; rm " + b, ": >" + b + "; " + until(a) + "; rm " + a}));
  EXPECT_EQ(results[0].exit_status, 0);
  EXPECT_EQ(results[1].exit_status, 0);
  EXPECT_EQ(rmdir(directory.c_str()), 0);
}

// Each fails where another one of them runs.
TEST(Batch, runs_no_more_at_once_than_it_may) {
  const std::string directory = testing::TempDir() + "batch-" + std::to_string(getpid());
  const std::string alone = "mkdir " + directory + " && sleep 0.02 && rmdir " + directory;
  for (const Result &result : results_of(scripts({alone, alone, alone}, 1))) EXPECT_EQ(result.err, "");
}

void create(const std::string &file) { std::ofstream{file}; }

TEST(Batch, a_process_that_ends_early_is_told_early) {
  const std::string file = testing::TempDir() + "batch-" + std::to_string(getpid());
  std::vector<std::size_t> order;
  const auto finished = [&](std::size_t index, const Result &) {
    order.push_back(index);
    create(file);
  };
  process::run_all(scripts({until(file), "true"}), {finished, [] {}});
  EXPECT_EQ(order, (std::vector<std::size_t>{1, 0}));
  EXPECT_EQ(unlink(file.c_str()), 0);
}

TEST(Batch, tells_again_and_again_that_it_waits) {
  const std::string file = testing::TempDir() + "batch-" + std::to_string(getpid());
  int times = 0;
  const auto waiting = [&] {
    if (++times == 3) create(file);
  };
  process::run_all(scripts({until(file)}), {[](std::size_t, const Result &) {}, waiting});
  EXPECT_GE(times, 3);
  EXPECT_EQ(unlink(file.c_str()), 0);
}

TEST(Batch, leaves_no_process_behind_where_an_event_throws) {
  const process::BatchEvents events{[](std::size_t, const Result &) { throw std::runtime_error("enough"); }, [] {}};
  EXPECT_THROW(process::run_all(scripts({"true", "exec sleep 60"}), events), std::runtime_error);
  EXPECT_FALSE(has_children());
}

TEST(Batch, ends_its_processes_where_a_signal_asks_it_to_end) {
  for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGTERM}) {
    int caught = 0;
    try {
      process::run_all(scripts({"kill -" + std::to_string(signal) + " $PPID", "exec sleep 60"}),
                       {[](std::size_t, const Result &) {}, [] {}});
    } catch (const process::Interrupted &interrupted) {
      caught = interrupted.signal;
    }
    EXPECT_EQ(caught, signal);
    EXPECT_FALSE(has_children());
  }
}

TEST(Batch, a_signal_that_is_ignored_stays_so) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  const std::vector<Result> results = results_of(scripts({"kill -HUP $PPID; kill -HUP $$; echo alive"}));
  std::signal(SIGHUP, before);
  EXPECT_EQ(results[0].out, "alive\n");
}

TEST(Batch, signals_are_as_before_when_it_is_done) {
  results_of(scripts({"true"}));
  struct sigaction action {};
  sigaction(SIGINT, nullptr, &action);
  EXPECT_EQ(action.sa_handler, SIG_DFL);
  sigset_t mask;
  pthread_sigmask(SIG_SETMASK, nullptr, &mask);
  EXPECT_EQ(sigismember(&mask, SIGINT), 0);
}

// A child that waits for a signal gets it although its parent puts it off.
TEST(Batch, a_child_takes_signals) { EXPECT_EQ(results_of(scripts({"kill -TERM $$; echo late"}))[0].signal, SIGTERM); }

}  // namespace
