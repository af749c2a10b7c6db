#ifndef MAINTENANCE_RECONSTRUCTION_FACTS_H
#define MAINTENANCE_RECONSTRUCTION_FACTS_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "element/profile/profile.h"
#include "element/schema/schema.h"
#include "maintenance/recording/asked_path.h"
#include "maintenance/recording/recording.h"

namespace reconstruction {

/// An entry of a list, or an object, as far as it was read.
struct Row {
  std::string node;                       ///< "/internal/int-sub-vpls-vpn-ac"
  std::vector<recording::PathStep> path;  ///< with the keys of what it stands in
  std::vector<recording::AgentValue> values;
};

/// A leaf or node that was asked for by its path and is there. `value` where it was read.
struct Leaf {
  std::vector<recording::PathStep> path;
  std::optional<recording::AgentValue> value;
};

/// How many entries a list has.
struct Count {
  std::string node;
  std::vector<recording::PathStep> path;
  std::int64_t entries = 0;
};

enum class Operation { created = 1, deleted = 2, modified = 3, value_set = 4 };

/// A change that the library was told of.
struct Change {
  std::vector<recording::PathStep> path;
  Operation operation = Operation::modified;
  std::optional<recording::AgentValue> value;
};

/// What a recording knows of the element.
struct Facts {
  std::vector<Row> candidate;
  std::vector<Row> running;
  std::set<std::string> read_in_running;  ///< the lists of `running` that were read
  std::vector<Leaf> leafs;
  std::vector<Count> counts;
  std::vector<Change> changes;
  std::vector<recording::PathStep> node;  ///< under validation

  element::CardLimits card;
  std::map<std::string, std::uint32_t> logical_ids;  ///< by interface
  std::map<std::uint32_t, std::int32_t> ifindexes;   ///< by logical identifier
  std::set<std::string> interfaces;                  ///< that the element has, as far as it was asked
  std::set<std::string> unknown_interfaces;          ///< that it was asked for and does not have
};

Facts collect_facts(const recording::Recording &recording, const element::Schema &schema);

/// The content of a value as text: a name as it is, a number in decimal, an address dotted.
std::string text_of(const recording::AgentValue &value);

}  // namespace reconstruction

#endif
