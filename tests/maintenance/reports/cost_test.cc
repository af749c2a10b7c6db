#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "element/input/input_error.h"
#include "maintenance/cost/child_text.h"
#include "maintenance/cost/doubled_commit.h"
#include "maintenance/cost/library_clock.h"
#include "maintenance/cost/measurement.h"
#include "maintenance/recording/encode.h"
#include "source_dir.h"
#include "tests/maintenance/reports/example_commits.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

cost::Latencies same(std::chrono::nanoseconds latency) {
  cost::Latencies latencies;
  latencies.fill(latency);
  return latencies;
}

cost::CommitCost cost_of(const std::string &example, const cost::MeasureOptions &options = {}) {
  return cost::measure(plugin_file(), example_commit(example), options).cost;
}

TEST(Cost, counts_each_platform_call_once) {
  const std::string example = "encapsulation-ranges-above-card-limit";
  const std::string told = cost::text_of_child([&example] {
    const maintenance::Commit commit = example_commit(example);
    host::HostSession session(*commit.profile);
    const host::Plugin plugin(plugin_file());
    const auto transaction = element::make_transaction(commit.running, commit.candidate, *commit.profile);
    host::validate_commit(plugin, session, *transaction);
    std::uint64_t calls = 0;
    for (const std::uint64_t count : host::validate_commit(plugin, session, *transaction).statistics.calls)
      calls += count;
    return std::to_string(calls);
  });
  EXPECT_EQ(std::to_string(cost_of(example).total()), told);
}

TEST(Cost, time_is_latency_by_function) {
  const cost::CommitCost cost = cost_of("access-two-vpns-two-vlans");
  cost::Latencies latencies = same(milliseconds(1));
  EXPECT_EQ(time_of(cost, latencies), milliseconds(cost.total()));
  latencies.fill({});
  latencies[static_cast<std::size_t>(host::SeamFunction::qnconfd_maapi_socket_get)] = milliseconds(7);
  EXPECT_EQ(time_of(cost, latencies), milliseconds(7 * cost.points.size())) << "each point asks for it once";
}

TEST(Cost, the_library_itself_extends_its_time_outs) {
  const auto extensions = [](std::chrono::nanoseconds latency) {
    cost::MeasureOptions options;
    options.latencies = same(latency);
    return cost_of("encapsulation-ranges-above-card-limit", options).find("vpn_access_valp")->extensions;
  };
  EXPECT_EQ(extensions(milliseconds(10)), 0u);
  EXPECT_EQ(extensions(seconds(3)), 1u);
  EXPECT_GT(extensions(seconds(40)), 1u);
}

TEST(Cost, names_the_step_in_which_the_time_is_over) {
  cost::MeasureOptions options;
  options.latencies = same(seconds(1));
  options.time_out = seconds(120);
  const cost::CommitCost holds = cost_of("encapsulation-ranges-above-card-limit", options);
  EXPECT_EQ(holds.find("vpn_access_valp")->overdue_step, "");
  EXPECT_EQ(holds.find("vpn_access_valp")->longest, seconds(holds.find("vpn_access_valp")->total()));
  options.time_out = seconds(15);
  EXPECT_EQ(cost_of("encapsulation-ranges-above-card-limit", options).find("vpn_access_valp")->overdue_step,
            "config_validate_vpn_access_vlm_vlan_based");
}

TEST(Cost, of_a_doubled_commit_is_of_what_is_decided_alike) {
  for (const std::string &example : example_names()) {
    const maintenance::Commit twice = cost::doubled(example_commit(example));
    const cost::CommitCost cost = cost_of(example);
    const cost::CommitCost doubled = cost::measure(plugin_file(), twice, {}).cost;
    EXPECT_EQ(doubled.decision, cost.decision) << example;
    EXPECT_GE(doubled.total(), cost.total()) << example;
    EXPECT_LE(doubled.total(), 3 * cost.total()) << example;
  }
}

TEST(LibraryClock, leaves_the_clock_of_others_alone) {
  const std::string told = cost::text_of_child([] {
    const element::Profile profile;
    host::HostSession session(profile);
    const host::Plugin plugin(plugin_file());
    const cost::LibraryClock clock(plugin_file());
    const auto before = std::chrono::system_clock::now();
    cost::LibraryClock::move(std::chrono::hours(24 * 365));
    return std::string(std::chrono::system_clock::now() - before < std::chrono::hours(24 * 300) ? "alone" : "moved");
  });
  EXPECT_EQ(told, "alone");
}

TEST(Latencies, are_read_by_function) {
  const std::string file = testing::TempDir() + "latencies.json";
  const auto read = [&file](const std::string &text) {
    std::ofstream(file) << text;
    return cost::read_latencies(file);
  };
  const cost::Latencies latencies = read(R"({"default": 0.5, "maapi_exists": 40})");
  EXPECT_EQ(latencies[static_cast<std::size_t>(host::SeamFunction::zlog)].count(), 500);
  EXPECT_EQ(latencies[static_cast<std::size_t>(host::SeamFunction::maapi_exists)].count(), 40'000);
  EXPECT_THROW(read(R"({"maapi_exist": 40})"), element::InputError);
  EXPECT_THROW(read(R"({"maapi_exists": -1})"), element::InputError);
  EXPECT_THROW(read(R"([1])"), element::InputError);
  EXPECT_THROW(read("{"), element::InputError);
  EXPECT_THROW(cost::read_latencies(file + ".none"), element::FileError);
  EXPECT_THROW(read("no recording"), element::InputError);
  EXPECT_THROW(cost::latencies_from_number("1.2.3"), std::invalid_argument);
}

TEST(Latencies, of_a_recording_are_the_means_of_its_durations) {
  recording::Recording recorded;
  const auto add = [&recorded](recording::Function function, std::uint64_t duration) {
    recorded.calls.emplace_back();
    recorded.calls.back().function = function;
    recorded.calls.back().duration = duration;
  };
  add(recording::Function::maapi_exists, 1000);
  add(recording::Function::maapi_exists, 3000);
  add(recording::Function::maapi_get_next, 5000);
  add(recording::Function::system_clock_now, 90'000);
  const std::string file = testing::TempDir() + "latencies.recording";
  std::ofstream(file, std::ios::binary) << recording::encode(recorded);
  const cost::Latencies latencies = cost::read_latencies(file);
  EXPECT_EQ(latencies[static_cast<std::size_t>(host::SeamFunction::maapi_exists)].count(), 2000);
  EXPECT_EQ(latencies[static_cast<std::size_t>(host::SeamFunction::maapi_get_next)].count(), 5000);
  EXPECT_EQ(latencies[static_cast<std::size_t>(host::SeamFunction::zlog)].count(), 3000) << "the mean of all";
}

TEST(CostCommand, prints_a_document_that_fits_its_schema) {
  const ProcessResult result = run_process(
      "d=$(mktemp) && " + vpnval_file() +
      " cost " SOURCE_DIR
      "/examples/access-two-vpns-one-vlan --latency 100 --wait --format json >$d; /usr/bin/python3 " SOURCE_DIR
      "/tests/cli/fits_schema.py " SOURCE_DIR "/docs/cost.schema.json $d; cat $d; rm $d");
  const std::string fits = "1 documents fit\n";
  ASSERT_EQ(result.output.substr(0, fits.size()), fits) << result.output;
  const auto document = nlohmann::json::parse(result.output.substr(fits.size()));
  EXPECT_GE(document["forecast"]["waited-seconds"], document["forecast"]["platform-seconds"]);
}

TEST(CostCommand, ends_with_1_where_a_question_does_not_hold_its_time) {
  const std::string command = vpnval_file() + " cost " SOURCE_DIR "/examples/access-two-vpns-one-vlan ";
  EXPECT_EQ(run_process(command).status, 0);
  const ProcessResult slow = run_process(command + "--latency 9000000");
  EXPECT_EQ(slow.status, 1);
  EXPECT_NE(slow.output.find("    does not hold its time, 120 s: it is over in "), std::string::npos) << slow.output;
  EXPECT_EQ(run_process(command + "--latency 1..5 2>&1").status, 64);
  EXPECT_EQ(run_process(command + "--wait 2>&1").status, 64);
}

}  // namespace
