#ifndef TESTS_ELEMENT_PRINT_H
#define TESTS_ELEMENT_PRINT_H

#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/difference.h"
#include "element/datastore/tree.h"

/// The one schema of a test program.
const element::Schema &test_schema();

using Lines = std::vector<std::string>;

/// A tree from paths, each with " = VALUE" when it is a leaf with a value, typed by the schema.
element::Tree tree_of(const Lines &lines);

/// What stands at or below a path, in order: an entry as its path, a leaf as "PATH = VALUE", an empty leaf and a
/// presence container as its path. tree_of reads these lines back.
Lines print(const element::Tree &tree, std::string_view at = "/");

/// The changes at or below a path, in order: "created PATH", "deleted PATH", "modified PATH" or "PATH = VALUE".
Lines print(const element::Change &changes, const element::Schema &schema, std::string_view at = "/");

#endif
