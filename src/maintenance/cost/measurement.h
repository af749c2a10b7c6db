#ifndef MAINTENANCE_COST_MEASUREMENT_H
#define MAINTENANCE_COST_MEASUREMENT_H

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/run/commit.h"
#include "maintenance/commits/commit.h"
#include "maintenance/cost/latencies.h"

namespace cost {

/// The platform calls that one step of the library made for one validation point.
struct StepCost {
  std::string function;
  std::array<std::uint64_t, host::seam_function_count> calls{};

  std::uint64_t total() const;
};

/// One validation point. Where it is triggered more than once, as one for each interface, its questions are added up.
struct PointCost {
  std::string point;
  std::vector<StepCost> steps;         ///< in the order of their first calls
  std::chrono::nanoseconds longest{};  ///< forecast: the longest question
  std::uint64_t extensions = 0;        ///< forecast: time-outs that the library extended
  /// Forecast: the longest time that the agent waited without an extension.
  std::chrono::nanoseconds longest_wait{};
  /// Forecast: the step during which the time that the agent gives first was over; empty: never.
  std::string overdue_step;

  std::uint64_t total() const;
};

/// What a commit costs.
struct CommitCost {
  host::Decision decision = host::Decision::accepted;
  std::vector<PointCost> points;        ///< in the order in which they were asked first
  std::chrono::nanoseconds own_time{};  ///< of the library and the virtual element here, without a latency

  std::uint64_t total() const;

  /// Of one point, or null.
  const PointCost *find(const std::string &point) const;
};

/// What the platform calls of a point or a step take with these latencies.
std::chrono::nanoseconds time_of(const StepCost &step, const Latencies &latencies);
std::chrono::nanoseconds time_of(const PointCost &point, const Latencies &latencies);
std::chrono::nanoseconds time_of(const CommitCost &commit, const Latencies &latencies);

struct MeasureOptions {
  Latencies latencies{};
  std::chrono::seconds time_out{120};  ///< that the agent gives a question until it is extended
  bool wait = false;                   ///< each call lasts as long as its latency says, and waited_time is set
};

struct Measured {
  CommitCost cost;
  std::chrono::nanoseconds waited_time{};  ///< of the whole commit where each call waited
};

/// Has a library decide a commit as the element does, and counts its platform calls by step. The library sees a clock
/// that each call moves by its latency. This takes place in a child process, because a library keeps a card's limits as
/// long as its process lives. Throws std::runtime_error; what() is the reason, as that of a library that cannot be
/// loaded or breaks its contract.
Measured measure(const std::filesystem::path &library, const maintenance::Commit &commit,
                 const MeasureOptions &options);

}  // namespace cost

#endif
