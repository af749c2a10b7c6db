#ifndef TESTS_PLANTED_JUDGED_ELEMENT_H
#define TESTS_PLANTED_JUDGED_ELEMENT_H

#include <memory>

#include "diagnosis/diagnose.h"
#include "element/datastore/transaction.h"
#include "host/run/commit.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "tests/planted/network.h"
#include "tests/planted/supply.h"

namespace planted {

/// The element with the library that ships; one in a process.
class JudgedElement {
 public:
  static JudgedElement &instance();

  std::unique_ptr<element::Transaction> transaction(const Draft &draft) const;
  host::Verdict judge(const element::Transaction &transaction);
  diagnosis::Diagnosis diagnose(const element::Transaction &transaction, const diagnosis::Options &options);

 private:
  JudgedElement();

  host::HostSession session_;
  const host::Plugin plugin_;
};

/// The message or warning on which a commit ends, and the warnings said before; none where it is accepted.
std::vector<host::PointVerdict> spoken(const host::Verdict &verdict);

}  // namespace planted

#endif
