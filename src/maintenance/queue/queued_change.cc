#include "maintenance/queue/queued_change.h"

#include <utility>

#include "element/datastore/difference.h"
#include "element/edit/apply_edit.h"
#include "element/edit/edit_of_difference.h"
#include "element/edit/edit_reader.h"
#include "element/edit/edited_configuration.h"

namespace queue {

QueuedChange read_edit_change(const element::Schema &schema, const std::string &name, const std::filesystem::path &file,
                              const element::ReadOptions &options) {
  element::EditFile edits = element::read_edits(schema, file, options);
  element::SourceLines lines = element::lines_of(edits.edits);
  return {name, file, std::move(edits.edits), std::move(lines), std::move(edits.passed_over)};
}

QueuedChange read_candidate_change(const element::Tree &running, const std::string &name,
                                   const std::filesystem::path &file, const element::ReadOptions &options) {
  const element::ConfigurationFile candidate = element::read_configuration_file(running.schema(), file, options);
  element::Edit edit = element::edit_of(element::difference(running, candidate.tree));
  edit.origin.file = file.string();
  return {name, file, {std::move(edit)}, candidate.source.lines, candidate.source.passed_over};
}

element::Tree edited(const element::Tree &before, const QueuedChange &change) {
  element::Tree after = before;
  for (const element::Edit &edit : change.edits) after = element::edited(after, edit);
  return after;
}

element::Tree applied(const element::Tree &before, const QueuedChange &change) {
  element::Tree after = edited(before, change);
  element::require_allowed(after, change.lines, change.file.string());
  return after;
}

element::ConfigurationFile applied(const element::ConfigurationFile &before, const std::filesystem::path &file_before,
                                   const QueuedChange &change) {
  element::ConfigurationFile after{applied(before.tree, change),
                                   {before.source.format, change.lines, {}, before.source.further}};
  after.source.further.insert(after.source.further.begin(), {file_before, before.source.lines});
  return after;
}

}  // namespace queue
