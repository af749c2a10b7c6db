#ifndef TESTS_MAINTENANCE_REPORTS_EXAMPLE_COMMITS_H
#define TESTS_MAINTENANCE_REPORTS_EXAMPLE_COMMITS_H

#include <string>
#include <vector>

#include "maintenance/commits/commit.h"

/// The folders of examples/ that are commits, by name.
std::vector<std::string> example_names();

/// The commit of a folder of examples/.
maintenance::Commit example_commit(const std::string &name);

#endif
