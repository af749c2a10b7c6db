#ifndef DIAGNOSIS_DIAGNOSE_H
#define DIAGNOSIS_DIAGNOSE_H

#include <chrono>
#include <cstdint>
#include <functional>

#include "diagnosis/finding.h"
#include "element/datastore/transaction.h"
#include "host/run/commit.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"

namespace diagnosis {

/// How long a search may last: the library is asked at most so often, and not again once the time is over. The same
/// number of calls finds the same; the time may end a search earlier on a slower machine.
struct Budget {
  std::uint64_t calls = 20'000;
  std::chrono::milliseconds time = std::chrono::seconds(60);
};

struct Options {
  bool all_findings = true;  ///< false: only what the device itself says
  bool with_repairs = true;  ///< look for what can be changed instead of taken back
  Budget budget;
  std::uint64_t enumerated_sets = 4096;  ///< a commit of at most so many closed sets of entries is enumerated
  std::function<std::chrono::steady_clock::time_point()> now{};  ///< asked before each call; empty: the steady clock
  std::function<void(std::uint64_t calls, std::size_t findings)>
      progress{};                          ///< called before each call of the library
  std::function<bool()> is_interrupted{};  ///< asked before each call of the library
};

/// Explains `verdict`, the library's verdict on the transaction as the device gives it: finds every minimal conflict of
/// the commit, and what to take back. The transaction holds its derived tables. Leaves the session as it was.
Diagnosis diagnose(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options);

}  // namespace diagnosis

#endif
