#include <cstddef>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "confd_dp.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_vpn/entry_points.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "drawn_commit.h"
#include "fuzz_target.h"
#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"

namespace {

/// Stands for the end of the process on a value of another type than the data model gives it.
struct TypeAssertion {};

/// What the library answers, or nothing where it does not answer: a broken data model ends the process, and these
/// exceptions reach the host, for a list that cannot be counted any more or for an uplink whose VLAN is no number.
std::optional<std::int32_t> ask(fuzz::DrawnCommit &commit, confd_trans_ctx &context) {
  confd_hkeypath_t path{};
  host::KeyPath(commit.path).write(path);
  confd_value_t value = host::borrowed_value(commit.value, *commit.path.back().schema);
  try {
    return validate(&context, &path, &value);
  } catch (const TypeAssertion &) {
  } catch (const std::bad_array_new_length &) {
  } catch (const std::invalid_argument &) {
  } catch (const std::out_of_range &) {
  }
  return std::nullopt;
}

void require_nothing_kept(const host::CallStatistics &statistics, bool may_keep_cursor) {
  require(statistics.open_sessions == 0, "every session is closed");
  require(statistics.owned_values == 0, "every value is freed, and freed once");
  require(statistics.open_cursors == 0 || (statistics.open_cursors == 1 && may_keep_cursor),
          "every cursor is destroyed");
}

void require_answer(std::int32_t answer, const confd_trans_ctx &context) {
  require(answer == CONFD_OK || answer == CONFD_ERR || answer == CONFD_VALIDATION_WARN,
          "the answer is accept, reject or accept with a warning");
  const bool has_text = context.error.str != nullptr && *context.error.str != '\0';
  require(answer == CONFD_OK || has_text, "a rejection and a warning have a text");
}

}  // namespace

// For a list that cannot be counted the library asks for more elements than an array can have. GCC's array-new throws
// then; Clang's asks for the greatest size, for which AddressSanitizer would end the process.
void *operator new[](std::size_t size) {
  if (size == static_cast<std::size_t>(-1)) throw std::bad_array_new_length();
  return ::operator new(size);
}
void operator delete[](void *memory) noexcept { ::operator delete(memory); }
void operator delete[](void *memory, std::size_t) noexcept { ::operator delete(memory); }

// The library is linked without its own, so that what a type assertion leaves open is seen.
void value_assert_fail(const char *, const char *, unsigned, const char *) { throw TypeAssertion(); }

/// Whatever the configurations hold and whichever call of the platform fails, the library answers as it must and keeps
/// nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const element::Schema schema;
  fuzz::DrawnCommit commit = fuzz::draw_commit(schema, data, size);
  const element::Transaction transaction(std::move(commit.running), std::move(commit.candidate));
  host::HostSession session(commit.profile);
  session.injected_failure = commit.failure;
  session.serve(&transaction);

  platform_limits = {};
  void *state = nullptr;
  lib_init(&state);

  confd_trans_ctx context{};
  context.thandle = session.transaction_handle();
  context.vcb_opaque = session.middleware();
  context.validate_opaque = commit.point.data();
  const std::optional<std::int32_t> answer = ask(commit, context);
  // The walk over the static members leaves its cursor to the agent where it comes to its end.
  const bool may_have_ended = answer && *answer != CONFD_ERR;
  require_nothing_kept(session.statistics, may_have_ended && commit.point == "vlm_memb_valp");
  if (answer) require_answer(*answer, context);
  return 0;
}
