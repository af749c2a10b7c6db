#ifndef DIAGNOSIS_DIAGNOSE_H
#define DIAGNOSIS_DIAGNOSE_H

#include <chrono>
#include <cstdint>
#include <functional>

#include "diagnosis/fault.h"
#include "element/datastore/transaction.h"
#include "host/run/commit.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"

namespace diagnosis {

/// How long a search may last: the library is asked at most so often about reduced commits, and not again once the
/// time is over. The same number of calls finds the same; the time may end a search earlier on a slower machine.
struct Budget {
  std::uint64_t calls = 20'000;
  std::chrono::milliseconds time = std::chrono::seconds(60);
};

struct Options {
  bool all_faults = false;  ///< go on behind what the device says
  Budget budget;
  std::function<void(std::uint64_t calls, std::size_t faults)> progress;  ///< called before each call of the library
};

/// Finds what draws each message of `verdict`, the library's verdict on the transaction as the device gives it, and,
/// if wanted, every further fault: what draws a message is taken back, and the library asked again, until it accepts
/// the rest without a warning. Leaves the seam as it was.
Diagnosis diagnose(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options);

}  // namespace diagnosis

#endif
