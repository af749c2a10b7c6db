#include "maintenance/cost/measurement.h"

#include <algorithm>
#include <numeric>
#include <sstream>
#include <thread>

#include "element/datastore/transaction.h"
#include "maintenance/cost/child_text.h"
#include "maintenance/cost/library_clock.h"
#include "maintenance/cost/library_steps.h"

namespace cost {
namespace {

using std::chrono::nanoseconds;

template <typename Item>
Item &find_or_add(std::vector<Item> &items, std::string Item::*name, const std::string &wanted) {
  const auto found = std::find_if(items.begin(), items.end(), [&](const Item &item) { return item.*name == wanted; });
  if (found != items.end()) return *found;
  items.emplace_back().*name = wanted;
  return items.back();
}

/// Counts the calls of a session by point and step while it lives, and moves the library's clock.
class CallAccount {
 public:
  CallAccount(host::HostSession &session, LibrarySteps &steps, const MeasureOptions &options)
      : session_(session), steps_(steps), options_(options) {
    session_.on_call = [this](host::SeamFunction function) { count(function); };
  }
  ~CallAccount() { session_.on_call = nullptr; }
  CallAccount(const CallAccount &) = delete;
  CallAccount &operator=(const CallAccount &) = delete;

  std::vector<PointCost> take() {
    if (!points_.empty()) take_extensions(points_.back());
    return std::move(points_);
  }

 private:
  void count(host::SeamFunction function) {
    PointCost &point = find_or_add(points_, &PointCost::point, session_.question.point);
    if (session_.question.number != question_) begin_question();
    take_extensions(point);
    StepCost &step = find_or_add(point.steps, &StepCost::function, steps_.current());
    const auto number = static_cast<std::size_t>(function);
    ++step.calls[number];
    time_ += options_.latencies[number];
    LibraryClock::move(options_.latencies[number]);
    note_time(point, step);
  }

  void begin_question() {
    question_ = session_.question.number;
    begin_ = since_ = time_;
    given_ = options_.time_out;
  }

  void take_extensions(PointCost &point) {
    const std::vector<int> &timeouts = session_.statistics.timeouts;
    for (; extensions_ < timeouts.size(); ++extensions_) {
      ++point.extensions;
      since_ = time_;
      given_ = std::chrono::seconds(timeouts[extensions_]);
    }
  }

  void note_time(PointCost &point, const StepCost &step) {
    point.longest = std::max(point.longest, time_ - begin_);
    point.longest_wait = std::max(point.longest_wait, time_ - since_);
    if (time_ - since_ > given_ && point.overdue_step.empty()) point.overdue_step = step.function;
  }

  host::HostSession &session_;
  LibrarySteps &steps_;
  const MeasureOptions &options_;
  std::vector<PointCost> points_;
  std::uint64_t question_ = 0;
  nanoseconds time_{};
  nanoseconds begin_{};  ///< of the question
  nanoseconds since_{};  ///< the begin of the question, or its last extension
  nanoseconds given_{};  ///< what the agent gives from then on
  std::size_t extensions_ = 0;
};

nanoseconds time_since(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration_cast<nanoseconds>(std::chrono::steady_clock::now() - begin);
}

/// Sleeps until shortly before the moment, for a sleep takes a little longer than it should, then looks at the clock.
void wait_until(std::chrono::steady_clock::time_point end) {
  constexpr std::chrono::microseconds oversleeping{100};
  std::this_thread::sleep_until(end - oversleeping);
  while (std::chrono::steady_clock::now() < end) {
  }
}

/// How long a commit lasts here where each call waits for its latency.
nanoseconds waited_time(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &commit,
                        const Latencies &latencies) {
  session.on_call = [&latencies](host::SeamFunction function) {
    wait_until(std::chrono::steady_clock::now() + latencies[static_cast<std::size_t>(function)]);
  };
  const auto begin = std::chrono::steady_clock::now();
  host::validate_commit(plugin, session, commit);
  session.on_call = nullptr;
  return time_since(begin);
}

Measured measure_here(const std::filesystem::path &library, const maintenance::Commit &commit,
                      const MeasureOptions &options) {
  host::HostSession session(*commit.profile);
  const host::Plugin plugin(library);
  const auto transaction = element::make_transaction(commit.running, commit.candidate, *commit.profile);
  Measured measured;
  // This decision is not measured: it starts the library's keep-alive and reads what is read once in a process.
  const LibraryClock clock(plugin.file());
  host::validate_commit(plugin, session, *transaction);
  const auto begin = std::chrono::steady_clock::now();
  measured.cost.decision = host::validate_commit(plugin, session, *transaction).decision;
  measured.cost.own_time = time_since(begin);
  if (options.wait) measured.waited_time = waited_time(plugin, session, *transaction, options.latencies);
  LibrarySteps steps(plugin.file());
  CallAccount account(session, steps, options);
  host::validate_commit(plugin, session, *transaction);
  measured.cost.points = account.take();
  return measured;
}

void write_point(std::ostream &out, const PointCost &point) {
  out << point.point << ' ' << point.longest.count() << ' ' << point.extensions << ' ' << point.longest_wait.count()
      << ' ' << (point.overdue_step.empty() ? "-" : point.overdue_step) << ' ' << point.steps.size() << '\n';
  for (const StepCost &step : point.steps) {
    out << step.function;
    for (const std::uint64_t calls : step.calls) out << ' ' << calls;
    out << '\n';
  }
}

PointCost read_point(std::istream &in) {
  PointCost point;
  std::int64_t longest = 0;
  std::int64_t wait = 0;
  std::size_t steps = 0;
  in >> point.point >> longest >> point.extensions >> wait >> point.overdue_step >> steps;
  point.longest = nanoseconds(longest);
  point.longest_wait = nanoseconds(wait);
  if (point.overdue_step == "-") point.overdue_step.clear();
  for (StepCost &step : (point.steps.resize(steps), point.steps)) {
    in >> step.function;
    for (std::uint64_t &calls : step.calls) in >> calls;
  }
  return point;
}

/// For the process that asked for it.
std::string to_text(const Measured &measured) {
  std::ostringstream out;
  out << static_cast<int>(measured.cost.decision) << ' ' << measured.cost.own_time.count() << ' '
      << measured.waited_time.count() << ' ' << measured.cost.points.size() << '\n';
  for (const PointCost &point : measured.cost.points) write_point(out, point);
  return out.str();
}

Measured from_text(const std::string &text) {
  std::istringstream in(text);
  Measured measured;
  int decision = 0;
  std::int64_t own = 0;
  std::int64_t waited = 0;
  std::size_t points = 0;
  in >> decision >> own >> waited >> points;
  measured.cost.decision = static_cast<host::Decision>(decision);
  measured.cost.own_time = nanoseconds(own);
  measured.waited_time = nanoseconds(waited);
  for (std::size_t i = 0; i < points; ++i) measured.cost.points.push_back(read_point(in));
  return measured;
}

template <typename Items>
std::uint64_t sum_of_totals(const Items &items) {
  return std::accumulate(items.begin(), items.end(), std::uint64_t{0},
                         [](std::uint64_t sum, const auto &item) { return sum + item.total(); });
}

template <typename Items>
nanoseconds sum_of_times(const Items &items, const Latencies &latencies) {
  return std::accumulate(items.begin(), items.end(), nanoseconds(0),
                         [&](nanoseconds sum, const auto &item) { return sum + time_of(item, latencies); });
}

}  // namespace

std::uint64_t StepCost::total() const { return std::accumulate(calls.begin(), calls.end(), std::uint64_t{0}); }

std::uint64_t PointCost::total() const { return sum_of_totals(steps); }

std::uint64_t CommitCost::total() const { return sum_of_totals(points); }

const PointCost *CommitCost::find(const std::string &point) const {
  const auto found =
      std::find_if(points.begin(), points.end(), [&point](const PointCost &cost) { return cost.point == point; });
  return found == points.end() ? nullptr : &*found;
}

nanoseconds time_of(const StepCost &step, const Latencies &latencies) {
  nanoseconds time{};
  for (std::size_t i = 0; i < latencies.size(); ++i) time += step.calls[i] * latencies[i];
  return time;
}

nanoseconds time_of(const PointCost &point, const Latencies &latencies) { return sum_of_times(point.steps, latencies); }

nanoseconds time_of(const CommitCost &commit, const Latencies &latencies) {
  return sum_of_times(commit.points, latencies);
}

Measured measure(const std::filesystem::path &library, const maintenance::Commit &commit,
                 const MeasureOptions &options) {
  return from_text(text_of_child([&] { return to_text(measure_here(library, commit, options)); }));
}

}  // namespace cost
