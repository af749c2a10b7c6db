// The element without a plug-in: reading a configuration, deriving from it, comparing two, at growing sizes. Times must
// grow with the number of access interfaces and no faster.

#include <benchmark/benchmark.h>

#include <array>
#include <utility>

#include "bench/peak_memory.h"
#include "bench/shapes.h"
#include "element/datastore/difference.h"
#include "element/datastore/transaction.h"
#include "element/input/configuration.h"
#include "element/output/configuration_writer.h"
#include "element/projection/projection.h"

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

bench::Commit commit_of(const benchmark::State &state) {
  return bench::make_commit(schema(), static_cast<bench::Shape>(state.range(0)),
                            static_cast<std::size_t>(state.range(1)));
}

void report(benchmark::State &state, std::size_t peak_bytes) {
  using benchmark::Counter;
  const auto size = static_cast<double>(state.range(1));
  state.SetLabel(std::string(bench::name(static_cast<bench::Shape>(state.range(0)))));
  state.SetComplexityN(state.range(1));
  state.counters["time_each"] = Counter(size, Counter::kIsIterationInvariantRate | Counter::kInvert);
  state.counters["peak"] = Counter(static_cast<double>(peak_bytes), Counter::kDefaults, Counter::kIs1024);
  state.counters["peak_each"] = Counter(static_cast<double>(peak_bytes) / size, Counter::kDefaults, Counter::kIs1024);
}

/// Runs a step on what `prepare` makes, which costs no time and no memory here.
template <typename Prepare, typename Step>
void measure(benchmark::State &state, Prepare prepare, Step step) {
  std::size_t peak = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto input = prepare();
    const bench::PeakMemory memory;
    state.ResumeTiming();
    auto output = step(input);
    benchmark::DoNotOptimize(output);
    state.PauseTiming();
    peak = std::max(peak, memory.bytes());
    { [[maybe_unused]] const auto dropped = std::move(output); }
    { [[maybe_unused]] const auto dropped = std::move(input); }
    state.ResumeTiming();
  }
  report(state, peak);
}

void load(benchmark::State &state) {
  const std::string text = write_configuration(commit_of(state).candidate, element::InputFormat::xml);
  measure(
      state, [&text] { return std::string_view(text); },
      [](std::string_view xml) { return parse_configuration(schema(), xml, "candidate.xml"); });
}

void project(benchmark::State &state) {
  const bench::Commit commit = commit_of(state);
  measure(
      state, [&commit] { return commit.candidate; },
      [&commit](element::Tree &tree) {
        element::Projector projector(commit.profile);
        projector.project(tree);
        return 0;
      });
}

void difference(benchmark::State &state) {
  bench::Commit commit = commit_of(state);
  element::Projector projector(commit.profile);
  projector.project(commit.running);
  projector.project(commit.candidate);
  measure(
      state, [] { return 0; }, [&commit](int) { return element::difference(commit.running, commit.candidate); });
}

void transaction(benchmark::State &state) {
  const bench::Commit commit = commit_of(state);
  measure(
      state, [&commit] { return std::pair(commit.running, commit.candidate); },
      [&commit](std::pair<element::Tree, element::Tree> &trees) {
        return make_transaction(std::move(trees.first), std::move(trees.second), commit.profile);
      });
}

void sizes(benchmark::internal::Benchmark *benchmark) {
  for (const bench::Shape shape : {bench::Shape::many_ports, bench::Shape::few_ports, bench::Shape::one_vpn}) {
    for (const std::int64_t size : {1000, 10000, 100000}) benchmark->Args({static_cast<std::int64_t>(shape), size});
  }
  benchmark->ArgNames({"shape", "access_interfaces"})->Unit(benchmark::kMillisecond);
}

BENCHMARK(load)->Apply(sizes);
BENCHMARK(project)->Apply(sizes);
BENCHMARK(difference)->Apply(sizes);
BENCHMARK(transaction)->Apply(sizes);

}  // namespace
