// One validation of a commit that every rule accepts, without and with the recorder. The time is the CPU time with it;
// `plain` and `recorded` are the least seconds of any iteration, `a_call` their difference for each call of the
// platform, and `bytes` what the recording has for each. Writing the file is part of it.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <numeric>
#include <string>

#include "bench/asked_point.h"
#include "bench/cpu_time.h"
#include "bench/point_commits.h"

namespace {

namespace fs = std::filesystem;

/// A folder with the recorder in the place of the library, gone with the object.
class RecorderFolder {
 public:
  RecorderFolder() {
    std::string name = (fs::temp_directory_path() / "recorder-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
    fs::copy_file(RECORDER_FILE, library());
    fs::copy_file(PLUGIN_FILE, path_ / "libconfig_validate_vpn.real.so");
    fs::create_directory(recordings());
  }
  ~RecorderFolder() { fs::remove_all(path_); }
  RecorderFolder(const RecorderFolder &) = delete;
  RecorderFolder &operator=(const RecorderFolder &) = delete;

  fs::path library() const { return path_ / "libconfig_validate_vpn.so"; }

  /// Of one recording; 0 where none was made, because it was too large.
  std::uintmax_t recording_size() const {
    for (const auto &entry : fs::directory_iterator(recordings())) {
      if (entry.path().extension() == ".vpnrec") return entry.file_size();
    }
    return 0;
  }

 private:
  fs::path recordings() const { return path_ / "libconfig_validate_vpn.recordings"; }

  fs::path path_;
};

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

void validate(benchmark::State &state, bench::PointCommitKind kind) {
  const bench::PointCommit commit = make_point_commit(schema(), kind, static_cast<std::size_t>(state.range(0)));
  const RecorderFolder folder;
  host::HostSession session(commit.profile);
  const host::Plugin library(PLUGIN_FILE);
  const host::Plugin recorder(folder.library());
  bench::AskedPoint plain(commit, library, session);
  bench::AskedPoint recorded(commit, recorder, session);

  double plain_least = std::numeric_limits<double>::max();
  double recorded_least = plain_least;
  for (auto _ : state) {
    plain_least = std::min(plain_least, bench::cpu_seconds_of([&plain] { plain.validate(); }));
    session.statistics = {};
    const double seconds = bench::cpu_seconds_of([&recorded] { recorded.validate(); });
    recorded_least = std::min(recorded_least, seconds);
    state.SetIterationTime(seconds);
  }
  const auto &calls = session.statistics.calls;
  const double count = static_cast<double>(std::accumulate(calls.begin(), calls.end(), std::uint64_t{0}));
  state.counters["plain"] = plain_least;
  state.counters["recorded"] = recorded_least;
  state.counters["a_call"] = (recorded_least - plain_least) / count;
  state.counters["calls"] = count;
  state.counters["bytes"] = static_cast<double>(folder.recording_size()) / count;
}

}  // namespace

int main(int argc, char **argv) {
  using Kind = bench::PointCommitKind;
  for (const Kind kind : {Kind::access_many_ports, Kind::access_few_ports, Kind::access_one_vpn, Kind::peer}) {
    auto *benchmark = benchmark::RegisterBenchmark(std::string(name(kind)).c_str(), validate, kind);
    benchmark->Arg(64)->Arg(1024)->Arg(4096)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.2);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 64;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
