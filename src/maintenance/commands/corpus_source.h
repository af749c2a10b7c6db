#ifndef MAINTENANCE_COMMANDS_CORPUS_SOURCE_H
#define MAINTENANCE_COMMANDS_CORPUS_SOURCE_H

#include <cstdint>
#include <string>
#include <vector>

#include "element/schema/schema.h"
#include "maintenance/comparison/compare.h"

namespace maintenance {

/// A corpus as a command line names it.
struct CorpusArguments {
  std::vector<std::string> places;  ///< folders of commits, folders that hold such folders, recordings
  std::size_t random = 0;           ///< so many drawn commits behind the folders
  std::uint64_t seed = 1;           ///< of the first drawn commit; the next one's is greater by one
};

/// The corpus. Folders are read where a commit is asked about, so that none but those is in memory. The schema must
/// outlive it. Throws cli::UsageError where nothing is named, element::FileError or element::InputError for a place
/// that is no commit's folder, holds none, and is no recording.
Corpus find_corpus(const CorpusArguments &arguments, const element::Schema &schema);

}  // namespace maintenance

#endif
