#ifndef TESTS_DIAGNOSIS_JUDGED_ELEMENT_H
#define TESTS_DIAGNOSIS_JUDGED_ELEMENT_H

#include <memory>

#include "diagnosis/diagnose.h"
#include "element/datastore/transaction.h"
#include "tests/element/print.h"

/// The interfaces "eth0" to "eth3" and "service-port-1", and room for 16 of everything, with the library that ships;
/// one in a process, for the library reads the card's limits once.
class JudgedElement {
 public:
  static JudgedElement &instance();

  std::unique_ptr<element::Transaction> transaction(element::Tree running, element::Tree candidate) const;
  host::Verdict judge(const element::Transaction &transaction);
  diagnosis::Diagnosis diagnose(const element::Transaction &transaction, const diagnosis::Options &options);

 private:
  JudgedElement();

  const element::Profile profile_;
  host::HostSession session_;
  const host::Plugin plugin_;
};

#endif
