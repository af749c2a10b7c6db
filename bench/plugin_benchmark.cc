// One validation of a commit that every rule accepts, at growing sizes. The time is the CPU time of the plug-in, apart
// from the platform calls: what is left of the whole when the time in the calls is taken off, and for each call the one
// reading of the clock that it does not see itself. `plugin` and `platform` are the least seconds of any iteration, out
// of and in the calls. The other counters are the platform's functions and how often each was called.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>

#include "bench/asked_point.h"
#include "bench/cpu_time.h"
#include "bench/peak_memory.h"
#include "bench/point_commits.h"
#include "bench/timed_platform.h"

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

void report_calls(benchmark::State &state, const host::CallStatistics &statistics) {
  std::uint64_t all = 0;
  for (std::size_t i = 0; i < host::seam_function_count; ++i) {
    if (statistics.calls[i] == 0) continue;
    all += statistics.calls[i];
    state.counters[std::string(name(static_cast<host::SeamFunction>(i)))] = static_cast<double>(statistics.calls[i]);
  }
  state.counters["calls"] = static_cast<double>(all);
}

void validate(benchmark::State &state, bench::PointCommitKind kind) {
  const bench::PointCommit commit = make_point_commit(schema(), kind, static_cast<std::size_t>(state.range(0)));
  host::HostSession session(commit.profile);
  const host::Plugin library(PLUGIN_FILE);
  bench::AskedPoint point(commit, library, session);

  constexpr double kNever = std::numeric_limits<double>::max();
  const double reading = bench::clock_reading_seconds();
  double plugin_least = kNever;
  double platform_least = kNever;
  std::size_t peak = 0;
  for (auto _ : state) {
    const bench::PeakMemory memory;
    const bench::PlatformTime before = bench::platform_time();
    const double all = bench::cpu_seconds_of([&point] { point.validate(); });
    const bench::PlatformTime after = bench::platform_time();
    const double in_platform = after.seconds - before.seconds;
    const double readings = static_cast<double>(after.timed_calls - before.timed_calls) * reading;
    const double in_plugin = std::max(all - in_platform - readings, 0.0);
    state.SetIterationTime(in_plugin);
    plugin_least = std::min(plugin_least, in_plugin);
    platform_least = std::min(platform_least, in_platform);
    peak = std::max(peak, memory.bytes());
  }
  using benchmark::Counter;
  state.counters["plugin"] = plugin_least;
  state.counters["platform"] = platform_least;
  state.counters["peak"] = Counter(static_cast<double>(peak), Counter::kDefaults, Counter::kIs1024);
  report_calls(state, session.statistics);
}

void add(bench::PointCommitKind kind, std::initializer_list<std::int64_t> sizes) {
  auto *benchmark = benchmark::RegisterBenchmark(std::string(name(kind)).c_str(), validate, kind);
  for (const std::int64_t size : sizes) benchmark->Arg(size);
  benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.2);
}

}  // namespace

int main(int argc, char **argv) {
  using Kind = bench::PointCommitKind;
  for (const Kind kind : {Kind::access_many_ports, Kind::access_few_ports, Kind::access_one_vpn}) {
    add(kind, {256, 1024, 4096, 16384, 65536});
  }
  add(Kind::peer, {64, 256, 1024, 16384, 65536});
  constexpr std::int64_t kAllVlansOn64Ports = 4094 * 64;
  add(Kind::membership, {1024, 4096, 16384, 65536, kAllVlansOn64Ports});

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 64;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
