#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "process/batch.h"

namespace {

using process::Result;

int refusals_left = 0;
int refused_with = 0;

}  // namespace

/// Takes the place of the system's function: refuses a few times as if there were no room, then passes on.
extern "C" int posix_spawn(pid_t *process, const char *file, const posix_spawn_file_actions_t *actions,
                           const posix_spawnattr_t *attributes, char *const arguments[], char *const variables[]) {
  using Spawn = decltype(&posix_spawn);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
  static const auto spawn = reinterpret_cast<Spawn>(dlsym(RTLD_NEXT, "posix_spawn"));
  if (refusals_left > 0) {
    --refusals_left;
    return refused_with;
  }
  return spawn(process, file, actions, attributes, arguments, variables);
}

namespace {

std::vector<Result> results_of(const process::Batch &batch) {
  std::vector<Result> results(batch.arguments.size());
  process::run_all(batch,
                   {[&results](std::size_t index, Result result) { results[index] = std::move(result); }, [] {}});
  return results;
}

std::vector<Result> results_of_many(std::size_t count, std::size_t jobs) {
  return results_of({"/bin/sh", std::vector<std::vector<std::string>>(count, {"-c", "echo done"}), jobs});
}

bool are_all_done(const std::vector<Result> &results) {
  return std::all_of(results.begin(), results.end(), [](const Result &result) {
    return result.not_started.empty() && result.exit_status == 0 && result.out == "done\n";
  });
}

/// While it lives, this process may open so many descriptors more.
class FewDescriptors {
 public:
  explicit FewDescriptors(rlim_t more) {
    getrlimit(RLIMIT_NOFILE, &before_);
    const int next = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(next);
    const rlimit few{static_cast<rlim_t>(next) + more, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
  }
  ~FewDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
  FewDescriptors(const FewDescriptors &) = delete;
  FewDescriptors &operator=(const FewDescriptors &) = delete;

 private:
  rlimit before_{};
};

TEST(BatchShortage, fewer_run_at_once_where_descriptors_run_out) {
  const FewDescriptors descriptors(12);
  EXPECT_TRUE(are_all_done(results_of_many(40, 100)));
}

// All but the last wait for the last, each with one descriptor open of the two that it began with.
TEST(BatchShortage, processes_that_write_no_more_errors_need_one_descriptor_each) {
  const std::string file = testing::TempDir() + "last-of-many-" + std::to_string(getpid());
  const std::string waiting = "exec 2>&-; while [ ! -e $0 ]; do sleep 0.01; done; echo done";
  process::Batch batch{"/bin/sh", std::vector<std::vector<std::string>>(29, {"-c", waiting, file}), 30};
  batch.arguments.push_back({"-c", "touch $0; echo done", file});
  const FewDescriptors descriptors(36);
  EXPECT_TRUE(are_all_done(results_of(batch)));
  std::filesystem::remove(file);
}

TEST(BatchShortage, what_no_end_of_a_process_can_cure_is_told) {
  const FewDescriptors descriptors(0);
  const std::vector<Result> results = results_of_many(1, 1);
  EXPECT_EQ(results[0].not_started, "pipe: Too many open files");
}

TEST(BatchShortage, a_start_that_the_system_has_no_room_for_is_tried_again) {
  for (const int error : {EAGAIN, ENOMEM, ENFILE}) {
    refused_with = error;
    refusals_left = 3;
    EXPECT_TRUE(are_all_done(results_of_many(4, 2))) << error;
    EXPECT_EQ(refusals_left, 0) << error;
  }
}

TEST(BatchShortage, another_failure_is_told_at_once) {
  refused_with = ENOENT;
  refusals_left = 1;
  const std::vector<Result> results = results_of_many(2, 1);
  EXPECT_EQ(results[0].not_started, "/bin/sh: No such file or directory");
  EXPECT_EQ(results[1].out, "done\n");
}

}  // namespace
