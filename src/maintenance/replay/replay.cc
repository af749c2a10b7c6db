#include "maintenance/replay/replay.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "confd_dp.h"
#include "maintenance/hooks/hooking.h"
#include "maintenance/hooks/library_slots.h"
#include "maintenance/recording/decode.h"
#include "maintenance/replay/account.h"
#include "maintenance/replay/answers.h"
#include "maintenance/replay/player.h"

namespace replay {

namespace {

using recording::HandleKind;

// --- in the process that replays ---

/// Where the account goes, once.
class Teller {
 public:
  explicit Teller(int descriptor) : descriptor_(descriptor) {}

  std::string library;

  [[noreturn]] void tell(Account account) const {
    account.library = library;
    const std::string bytes = to_bytes(account);
    std::size_t written = 0;
    while (written < bytes.size()) {
      const ssize_t part = ::write(descriptor_, bytes.data() + written, bytes.size() - written);
      if (part < 0 && errno != EINTR) break;
      if (part > 0) written += static_cast<std::size_t>(part);
    }
    ::_exit(0);
  }

  [[noreturn]] void fail(const std::string &reason) const {
    Account account;
    account.end = Account::End::failed;
    account.reason = reason;
    tell(account);
  }

 private:
  int descriptor_;
};

using Validate = std::int32_t(confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *);
using Initialise = std::int32_t(void **);

template <typename Function>
Function *entry_point(void *library, const char *name, const Teller &teller) {
  void *symbol = ::dlsym(library, name);
  if (symbol == nullptr) teller.fail(std::string("missing entry point ") + name);
  return reinterpret_cast<Function *>(symbol);
}

// A library that is in the process already has read the limits of another card.
void *load(const std::string &file, const Teller &teller) {
  if (::dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD) != nullptr) teller.fail("it is in use by this program already");
  void *library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) teller.fail(std::string("not a library that can be loaded: ") + ::dlerror());
  return library;
}

confd_hkeypath_t key_path(const recording::KeyPath &path) {
  confd_hkeypath_t result{};
  result.len = static_cast<int>(std::min<std::size_t>(path.size(), MAXDEPTH));
  for (std::size_t i = 0; i < static_cast<std::size_t>(result.len); ++i) write_element(path[i], result.v[i]);
  return result;
}

/// The context that the platform hands over with the question.
confd_trans_ctx context_of(const recording::Header &header, std::string &point) {
  confd_trans_ctx context{};
  context.mode = CONFD_READ;
  context.dbname = CONFD_CANDIDATE;
  context.thandle = static_cast<int>(header.transaction);
  context.vcb_opaque = address_of({HandleKind::middleware, 1});
  point = header.point;
  context.validate_opaque = point.data();
  return context;
}

Account decide(const recording::Recording &recording, Validate *validate, Player &player) {
  std::string point;
  confd_trans_ctx context = context_of(recording.header, point);
  player.handles().open(HandleKind::context, &context);
  player.handles().open(HandleKind::middleware, context.vcb_opaque);
  confd_hkeypath_t path = key_path(recording.header.path);
  confd_value_t value{};
  if (recording.header.value) value = hooks::borrowed(*recording.header.value);

  Account account;
  account.verdict = validate(&context, &path, recording.header.value ? &value : nullptr);
  if (context.error.str != nullptr) account.message = context.error.str;
  account.not_asked = player.not_asked();
  return account;
}

[[noreturn]] void play(const recording::Recording &recording, const std::string &file, Teller &teller) {
  Player own_player(recording, [&teller](const Account &account) { teller.tell(account); });
  set_player(&own_player);
  void *library = load(file, teller);
  teller.library = hooks::build_id(library);
  const hooks::Hooked hooked = hooks::hook(library, answers());
  if (!hooked.problem.empty()) teller.fail(hooked.problem);
  own_player.set_error_number(hooked.error_number);

  void *state = nullptr;
  const std::int32_t result = entry_point<Initialise>(library, "lib_init", teller)(&state);
  if (result != 0) teller.fail("lib_init answered " + std::to_string(result));
  teller.tell(decide(recording, entry_point<Validate>(library, "validate", teller), own_player));
}

// --- in the process that asks for it ---

std::string read_all(int descriptor) {
  std::string bytes;
  std::array<char, 65536> part;
  while (true) {
    const ssize_t size = ::read(descriptor, part.data(), part.size());
    if (size > 0) bytes.append(part.data(), static_cast<std::size_t>(size));
    if (size == 0 || (size < 0 && errno != EINTR)) return bytes;
  }
}

/// What the process that replays told; nothing where it crashed, with the reason in `crash`.
std::string bytes_of_account(const recording::Recording &recording, const std::string &file, std::string &crash) {
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) throw ReplayError(std::string("no pipe: ") + std::strerror(errno));
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child < 0) throw ReplayError(std::string("no process: ") + std::strerror(errno));
  if (child == 0) {
    ::close(pipe[0]);
    Teller teller(pipe[1]);
    try {
      play(recording, file, teller);
    } catch (const std::exception &error) {
      teller.fail(std::string("an exception left the call: ") + error.what());
    }
  }
  ::close(pipe[1]);
  std::string bytes = read_all(pipe[0]);
  ::close(pipe[0]);
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFSIGNALED(status)) crash = ::strsignal(WTERMSIG(status));
  if (crash.empty() && bytes.empty()) crash = "exit status " + std::to_string(WEXITSTATUS(status));
  return bytes;
}

Divergence divergence_of(const recording::Recording &recording, Account &account) {
  Divergence divergence;
  divergence.number = account.number;
  divergence.reason = account.reason;
  divergence.asked = std::move(account.asked);
  const std::vector<NumberedCall> calls = numbered_calls(recording);
  if (account.number >= 1 && account.number <= calls.size()) divergence.recorded = *calls[account.number - 1].call;
  constexpr std::size_t kBefore = 5;
  const std::size_t last = std::min(account.number - 1, calls.size());
  for (std::size_t i = last - std::min(last, kBefore); i < last; ++i) divergence.before.push_back(calls[i]);
  return divergence;
}

}  // namespace

Outcome replay(const recording::Recording &recording, const std::filesystem::path &plugin) {
  if (!std::filesystem::is_regular_file(plugin)) throw ReplayError("there is no such file");
  Outcome outcome;
  const std::string bytes = bytes_of_account(recording, std::filesystem::absolute(plugin).string(), outcome.crash);
  if (!outcome.crash.empty()) return outcome;
  Account account = account_from(bytes);
  if (account.end == Account::End::failed) throw ReplayError(account.reason);

  outcome.library = account.library;
  if (account.end == Account::End::diverged) {
    outcome.divergence = divergence_of(recording, account);
    return outcome;
  }
  outcome.verdict = account.verdict;
  outcome.message = std::move(account.message);
  const std::vector<NumberedCall> calls = numbered_calls(recording);
  for (const std::size_t number : account.not_asked) outcome.not_asked.push_back(calls.at(number - 1));
  return outcome;
}

}  // namespace replay
