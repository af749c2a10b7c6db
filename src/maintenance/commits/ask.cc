#include "maintenance/commits/ask.h"

#include <poll.h>

#include <algorithm>
#include <deque>
#include <list>

#include "host/run/plugin.h"
#include "maintenance/commits/asking_process.h"

namespace maintenance {
namespace {

constexpr std::size_t kMostOfProcess = 500;

class Asking {
 public:
  Asking(const std::filesystem::path &library, const CommitRow &row, const AskOptions &options)
      : library_(library), row_(row), options_(options), answers_(row.size) {
    const std::size_t each = std::clamp(row.size / (4 * options.jobs), std::size_t{1}, kMostOfProcess);
    for (std::size_t begin = 0; begin < row.size; begin += each) {
      std::vector<std::size_t> numbers;
      for (std::size_t i = begin; i < std::min(begin + each, row.size); ++i) numbers.push_back(i);
      waiting_.push_back(std::move(numbers));
    }
  }

  std::vector<Answer> run() {
    while (!waiting_.empty() || !running_.empty()) {
      while (!waiting_.empty() && running_.size() < options_.jobs) start();
      wait();
      take();
      options_.progress(answered_);
    }
    return std::move(answers_);
  }

 private:
  void start() {
    running_.emplace_back(library_, row_, std::move(waiting_.front()));
    waiting_.pop_front();
  }

  void wait() {
    ready_.clear();
    for (const AskingProcess &process : running_) ready_.push_back({process.descriptor(), POLLIN, 0});
    poll(ready_.data(), ready_.size(), -1);
  }

  void take() {
    std::size_t i = 0;
    for (auto process = running_.begin(); process != running_.end(); ++i) {
      const bool is_ended = ready_[i].revents != 0 && take_from(*process);
      process = is_ended ? running_.erase(process) : std::next(process);
    }
  }

  /// True where it has ended.
  bool take_from(AskingProcess &process) {
    AskingProcess::Taken taken = process.take();
    for (auto &[number, answer] : taken.answers) {
      if (answer.end == AnswerEnd::not_loaded) throw host::LoadError(answer.failure);
      answers_[number] = std::move(answer);
      ++answered_;
    }
    if (!taken.is_ended) return false;
    if (std::vector<std::size_t> rest = process.rest(); !rest.empty()) waiting_.push_back(std::move(rest));
    return true;
  }

  const std::filesystem::path &library_;
  const CommitRow &row_;
  const AskOptions &options_;
  std::vector<Answer> answers_;
  std::size_t answered_ = 0;
  std::deque<std::vector<std::size_t>> waiting_;
  std::list<AskingProcess> running_;
  std::vector<pollfd> ready_;
};

}  // namespace

std::vector<Answer> ask_all(const std::filesystem::path &library, const CommitRow &row, const AskOptions &options) {
  return Asking(library, row, options).run();
}

Answer ask(const std::filesystem::path &library, const Commit &commit) {
  return ask_all(library, {1, [&commit](std::size_t) { return commit; }}).front();
}

}  // namespace maintenance
