#ifndef TESTS_MAINTENANCE_RECORDING_RECORDED_RUN_H
#define TESTS_MAINTENANCE_RECORDING_RECORDED_RUN_H

#include <memory>
#include <string>
#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "host/seam/host_session.h"
#include "maintenance/recording/recording.h"
#include "tests/maintenance/recording/recorder_folder.h"

struct NamedCommit {
  std::string name;
  std::shared_ptr<const element::Transaction> transaction;
  bool is_replayed = true;
  host::InjectedFailure failure{};
};

/// In which way recorded runs of the commits differ from unrecorded ones: in verdict, message, trace or calls; the
/// recordings from what happened; and the replays of the recordings, as they are and anonymised, from these. Empty
/// where in none.
std::vector<std::string> differences(const element::Schema &schema, const element::Profile &profile,
                                     const std::vector<NamedCommit> &commits);

/// The commit of a folder of examples/.
NamedCommit example(const element::Schema &schema, const std::string &name, std::unique_ptr<element::Profile> &profile);

/// The recordings that a decision of an example makes.
std::vector<recording::Recording> recordings_of(const element::Schema &schema, const std::string &example);

#endif
