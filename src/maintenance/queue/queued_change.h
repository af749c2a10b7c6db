#ifndef MAINTENANCE_QUEUE_QUEUED_CHANGE_H
#define MAINTENANCE_QUEUE_QUEUED_CHANGE_H

#include <filesystem>
#include <string>
#include <vector>

#include "element/edit/edit.h"
#include "element/input/configuration.h"

namespace queue {

/// A change that waits to be committed, as its file gives it: an edit, or what a whole candidate has other than the
/// running configuration.
struct QueuedChange {
  std::string name;  ///< as its user named it
  std::filesystem::path file;
  std::vector<element::Edit> edits;  ///< applied one after the other
  element::SourceLines lines;
  element::PassedOver passed_over;  ///< of the file
};

/// A change that is written as an edit. Throws what element::read_edits throws.
QueuedChange read_edit_change(const element::Schema &schema, const std::string &name, const std::filesystem::path &file,
                              const element::ReadOptions &options);

/// A change that is written as the whole configuration that it makes of `running`. What both have alike is no part of
/// it. Throws what element::read_configuration_file throws.
QueuedChange read_candidate_change(const element::Tree &running, const std::string &name,
                                   const std::filesystem::path &file, const element::ReadOptions &options);

/// The configuration after the change, not held against the data model. Throws element::InputError where the change
/// does not fit the configuration (NETCONF's data-exists and data-missing).
element::Tree edited(const element::Tree &before, const QueuedChange &change);

/// The configuration after the change. Throws as edited(), and element::InputError where the data model
/// does not allow the result.
element::Tree applied(const element::Tree &before, const QueuedChange &change);

/// As above, with the lines of all files that the result was made of. `before` was read from `file_before`.
element::ConfigurationFile applied(const element::ConfigurationFile &before, const std::filesystem::path &file_before,
                                   const QueuedChange &change);

}  // namespace queue

#endif
