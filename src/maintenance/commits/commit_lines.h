#ifndef MAINTENANCE_COMMITS_COMMIT_LINES_H
#define MAINTENANCE_COMMITS_COMMIT_LINES_H

#include <string>
#include <vector>

#include "maintenance/commits/commit.h"

namespace maintenance {

/// A small commit for people, a line a node: "  PATH" or "  PATH = VALUE" for what stands in both configurations,
/// "+ ", "- " and "~ " in front of what is added, removed and set anew. Names that steer a terminal are escaped.
std::vector<std::string> commit_lines(const Commit &commit);

/// The lines as one text.
std::string commit_text(const Commit &commit);

}  // namespace maintenance

#endif
