#ifndef TESTS_ELEMENT_WRITTEN_CONFIGURATION_H
#define TESTS_ELEMENT_WRITTEN_CONFIGURATION_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "element/datastore/tree.h"

/// A configuration file and the line of every node in it, by path.
struct WrittenConfiguration {
  std::string text;
  std::map<std::string, std::size_t> lines;
};

/// Both draw line breaks, comments and the order of children from the seed; the tree holds something.
WrittenConfiguration written_as_xml(const element::Tree &tree, std::uint32_t seed);
WrittenConfiguration written_as_json(const element::Tree &tree, std::uint32_t seed);

#endif
