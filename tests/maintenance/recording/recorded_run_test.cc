#include "tests/maintenance/recording/recorded_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>

#include "maintenance/generator/draw_commit.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"

namespace {

/// Those of the first set that are not in the other.
std::set<std::string> without(std::set<std::string> names, const std::set<std::string> &others) {
  for (const std::string &name : others) names.erase(name);
  return names;
}

std::string joined(const std::vector<std::string> &lines) {
  std::string text;
  for (const std::string &line : lines) text += line + "\n";
  return text;
}

// The element and the recorder have a list of functions each, for the recorder shares no code with the element, and the
// numbers in its files stay. A library that had the platform format a path could not be recorded; ours does not.
TEST(RecordedFunctions, are_those_of_the_element) {
  std::set<std::string> of_element;
  for (std::size_t i = 0; i < host::seam_function_count; ++i) {
    of_element.emplace(host::name(static_cast<host::SeamFunction>(i)));
  }
  std::set<std::string> recorded;
  for (std::size_t i = 0; i < recording::function_count; ++i) {
    recorded.emplace(recording::name(static_cast<recording::Function>(i)));
  }
  EXPECT_EQ(without(of_element, recorded), (std::set<std::string>{"confd_pp_kpath"}));
  EXPECT_EQ(without(recorded, of_element), (std::set<std::string>{"cdb_session_socket", "system_clock_now"}));
}

/// A replay takes a process, which a sanitizer makes ten times as dear: then, a part of all commits is replayed.
bool is_replayed_here(std::size_t number) { return !is_sanitized() || number % 8 == 0; }

TEST(RecordedRun, equals_an_unrecorded_one_and_its_replay_in_every_example) {
  const element::Schema schema;
  std::size_t count = 0;
  for (const auto &folder : std::filesystem::directory_iterator(SOURCE_DIR "/examples")) {
    if (!folder.is_directory()) continue;
    std::unique_ptr<element::Profile> profile;
    NamedCommit commit = example(schema, folder.path().filename(), profile);
    commit.is_replayed = is_replayed_here(++count);
    EXPECT_EQ(joined(differences(schema, *profile, {commit})), "");
  }
  EXPECT_GT(count, 50U);
}

// Each function of the platform fails the first time, or always. Without the objects of the running configuration the
// library ends the process, as it must with a broken model.
TEST(RecordedRun, equals_an_unrecorded_one_and_its_replay_where_calls_fail) {
  const element::Schema schema;
  for (const char *name : {"whole-device", "pw-id-moved-to-another-vpn", "service-port-bridge-mtu-at-limit"}) {
    std::unique_ptr<element::Profile> profile;
    const NamedCommit commit = example(schema, name, profile);
    std::vector<NamedCommit> failing;
    for (std::size_t i = 0; i < host::seam_function_count; ++i) {
      for (const bool always : {false, true}) {
        const auto function = static_cast<host::SeamFunction>(i);
        if (function == host::SeamFunction::cdb_get_objects) continue;
        failing.push_back(commit);
        failing.back().failure = {function, 1, always};
        failing.back().is_replayed = !always && is_replayed_here(i);
        failing.back().name += " without " + std::string(host::name(function));
      }
    }
    EXPECT_EQ(joined(differences(schema, *profile, failing)), "");
  }
}

std::uint64_t number_in(const char *variable, std::uint64_t otherwise) {
  const char *wanted = std::getenv(variable);
  return wanted == nullptr ? otherwise : std::strtoull(wanted, nullptr, 10);
}

/// RECORDED_COMMITS asks for another number: 10,000 take some minutes.
std::uint64_t commits_to_draw() { return number_in("RECORDED_COMMITS", is_sanitized() ? 10 : 60); }

/// RECORDED_SEED asks for other commits.
std::uint64_t first_commit() { return number_in("RECORDED_SEED", 1); }

// Replaying takes a process each, so that of many commits only some are replayed.
TEST(RecordedRun, equals_an_unrecorded_one_and_its_replay_in_commits_at_random) {
  const element::Schema schema;
  const std::uint64_t count = commits_to_draw();
  std::map<std::shared_ptr<const element::Profile>, std::vector<NamedCommit>> by_element;
  for (std::uint64_t seed = first_commit(); seed < first_commit() + count; ++seed) {
    maintenance::Commit commit = maintenance::draw_commit(schema, seed);
    auto transaction =
        element::make_transaction(std::move(commit.running), std::move(commit.candidate), *commit.profile);
    const bool is_replayed = seed % (count / 500 + 1) == 0 && is_replayed_here(seed);
    by_element[commit.profile].push_back({"seed " + std::to_string(seed), std::move(transaction), is_replayed});
  }
  for (const auto &[profile, commits] : by_element) {
    EXPECT_EQ(joined(differences(schema, *profile, commits)), "");
  }
}

}  // namespace
