#include "maintenance/commits/asking_process.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>

#include "element/datastore/transaction.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"

namespace maintenance {
namespace {

constexpr time_t kMostCpuSeconds = 60;  // for one commit
constexpr char kPassedOver = 'p';
constexpr char kAnswered = 'a';

[[noreturn]] void throw_errno(const char *what) { throw std::system_error(errno, std::generic_category(), what); }

/// Ends the process by SIGPROF unless it is set anew before the library has used that much CPU time.
void set_alarm() {
  const itimerval bound{{0, 0}, {kMostCpuSeconds, 0}};
  setitimer(ITIMER_PROF, &bound, nullptr);
}

/// The library's side of the pipe.
class Asker {
 public:
  Asker(const std::filesystem::path &library, const CommitRow &row, int pipe)
      : library_(library), row_(row), pipe_(pipe) {}

  void ask_about(const std::vector<std::size_t> &numbers) {
    for (const std::size_t number : numbers) {
      if (!ask_about(number)) return;
    }
  }

 private:
  /// False where the library cannot be asked on.
  bool ask_about(std::size_t number) {
    set_alarm();
    Answer answer;
    try {
      Commit commit = row_.commit(number);
      if (is_of_another_card(*commit.profile)) {
        send(kPassedOver, {});
        return true;
      }
      answer = answer_about(std::move(commit));
    } catch (const std::exception &error) {
      answer.end = AnswerEnd::not_decided;
      answer.failure = error.what();
    }
    send(kAnswered, to_bytes(answer));
    return answer.end == AnswerEnd::answered || answer.end == AnswerEnd::not_decided;
  }

  bool is_of_another_card(const element::Profile &profile) {
    if (!card_) card_ = profile.card;
    for (const element::LimitField &limit : element::kLimitFields) {
      if ((*card_).*limit.value != profile.card.*limit.value) return true;
    }
    return false;
  }

  Answer answer_about(Commit commit) {
    Answer answer;
    const auto transaction =
        element::make_transaction(std::move(commit.running), std::move(commit.candidate), *commit.profile);
    host::HostSession session(*commit.profile);
    try {
      const host::Plugin plugin(library_);
      host::Verdict verdict = host::validate_commit(plugin, session, *transaction, {.all_points = true});
      answer.decision = verdict.decision;
      answer.points = std::move(verdict.points);
      answer.trace = std::move(verdict.statistics.trace);
      answer.calls = verdict.statistics.calls;
    } catch (const host::ContractError &error) {
      answer.end = AnswerEnd::broke_contract;
      answer.failure = error.what();
    } catch (const host::LoadError &error) {
      answer.end = AnswerEnd::not_loaded;
      answer.failure = error.what();
    }
    return answer;
  }

  void send(char kind, const std::string &bytes) const {
    const std::uint64_t size = bytes.size();
    std::string record(1, kind);
    record.append(reinterpret_cast<const char *>(&size), sizeof size);
    record += bytes;
    for (std::size_t at = 0; at < record.size();) {
      const ssize_t written = ::write(pipe_, record.data() + at, record.size() - at);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) _exit(1);
      at += static_cast<std::size_t>(written);
    }
  }

  const std::filesystem::path &library_;
  const CommitRow &row_;
  int pipe_;
  std::optional<element::CardLimits> card_;
};

/// What a library writes to the terminal is no part of the answer.
void close_standard_streams() {
  const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
}

std::string how_it_died(int status) {
  if (!WIFSIGNALED(status)) return fmt::format("ended the process with status {}", WEXITSTATUS(status));
  if (WTERMSIG(status) == SIGPROF) return fmt::format("used more than {} s of CPU time", kMostCpuSeconds);
  const char *name = sigabbrev_np(WTERMSIG(status));
  return fmt::format("died of SIG{}", name == nullptr ? std::to_string(WTERMSIG(status)) : name);
}

}  // namespace

AskingProcess::AskingProcess(const std::filesystem::path &library, const CommitRow &row,
                             std::vector<std::size_t> numbers)
    : numbers_(std::move(numbers)) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw_errno("no pipe");
  pipe_ = process::Descriptor(ends[0]);
  process::Descriptor written(ends[1]);
  const pid_t parent = getpid();
  process_ = fork();
  if (process_ < 0) throw_errno("no process");
  if (process_ > 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  close_standard_streams();
  Asker(library, row, written.number()).ask_about(numbers_);
  _exit(0);
}

AskingProcess::~AskingProcess() {
  if (process_ < 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

void AskingProcess::take_records(Taken &taken) {
  std::uint64_t size = 0;
  std::size_t at = 0;
  while (buffer_.size() - at > sizeof size) {
    std::memcpy(&size, buffer_.data() + at + 1, sizeof size);
    const std::size_t whole = 1 + sizeof size + size;
    if (buffer_.size() - at < whole) break;
    if (buffer_[at] == kPassedOver) {
      passed_over_.push_back(numbers_[done_]);
    } else {
      const std::string_view bytes(buffer_.data() + at + 1 + sizeof size, size);
      taken.answers.emplace_back(numbers_[done_], answer_from(bytes));
    }
    ++done_;
    at += whole;
  }
  buffer_.erase(0, at);
}

void AskingProcess::wait(Taken &taken) {
  int status = 0;
  while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = -1;
  taken.is_ended = true;
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0 && done_ != 0) return;
  if (done_ == numbers_.size()) return;  // it died of what stood behind the last answer
  Answer died;
  died.end = AnswerEnd::died;
  died.failure = how_it_died(status);
  taken.answers.emplace_back(numbers_[done_++], std::move(died));
}

AskingProcess::Taken AskingProcess::take() {
  Taken taken;
  char piece[65536];
  const ssize_t got = read(pipe_.number(), piece, sizeof piece);
  if (got < 0 && (errno == EINTR || errno == EAGAIN)) return taken;
  if (got > 0) {
    buffer_.append(piece, static_cast<std::size_t>(got));
    take_records(taken);
  } else {
    wait(taken);
  }
  return taken;
}

std::vector<std::size_t> AskingProcess::rest() const {
  std::vector<std::size_t> rest = passed_over_;
  rest.insert(rest.end(), numbers_.begin() + static_cast<std::ptrdiff_t>(done_), numbers_.end());
  return rest;
}

}  // namespace maintenance
