// The search for what draws a message, in large commits: CPU time beside that of the bare verdict, and how often the
// library is asked. `ratio` is the search's time to that of the verdict, `calls_each` the calls a finding.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/cpu_time.h"
#include "bench/search_commits.h"
#include "diagnosis/diagnose.h"

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

constexpr diagnosis::Budget kAmple{.calls = 1'000'000, .time = std::chrono::hours(24)};

void search(benchmark::State &state, bench::SearchCommitKind kind, bool with_repairs) {
  const bench::SearchCommit commit = make_search_commit(schema(), kind);
  host::HostSession session(commit.profile);
  const host::Plugin library(PLUGIN_FILE);
  double verdict_seconds = 0;
  double search_seconds = 0;
  diagnosis::Diagnosis found;
  for (auto _ : state) {
    std::unique_ptr<element::Transaction> transaction;
    host::Verdict verdict;
    verdict_seconds += bench::cpu_seconds_of([&] {
      transaction = element::make_transaction(commit.running, commit.candidate, commit.profile);
      verdict = host::validate_commit(library, session, *transaction);
    });
    const double seconds = bench::cpu_seconds_of([&] {
      found = diagnosis::diagnose(library, session, *transaction, verdict,
                                  {.with_repairs = with_repairs, .budget = kAmple});
    });
    state.SetIterationTime(seconds);
    search_seconds += seconds;
  }
  if (found.end != diagnosis::SearchEnd::complete || found.findings.size() != commit.findings) {
    state.SkipWithError("the search did not find what the commit has");
  }
  state.counters["verdict_s"] = verdict_seconds / static_cast<double>(state.iterations());
  state.counters["ratio"] = search_seconds / verdict_seconds;
  state.counters["calls"] = static_cast<double>(found.calls);
  state.counters["findings"] = static_cast<double>(found.findings.size());
  state.counters["calls_each"] = static_cast<double>(found.calls) / static_cast<double>(commit.findings);
}

}  // namespace

int main(int argc, char **argv) {
  for (const bench::SearchCommitKind kind : bench::kSearchCommitKinds) {
    for (const bool with_repairs : {false, true}) {
      const std::string name = std::string(bench::name(kind)) + (with_repairs ? "/with_repairs" : "/findings");
      benchmark::RegisterBenchmark(name.c_str(), search, kind, with_repairs)
          ->UseManualTime()
          ->Iterations(1)
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 64;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
