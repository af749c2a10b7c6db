#ifndef DIAGNOSIS_FAULT_H
#define DIAGNOSIS_FAULT_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"
#include "host/run/commit.h"

namespace diagnosis {

/// What the commit does to a node.
enum class Standing { unchanged, added, changed, removed };

/// A part of the change that can be taken back: a list entry that is added with its leafs, a list entry that is
/// removed with all it holds, or a leaf of an entry that stays.
struct ChangePart {
  Standing standing = Standing::changed;
  element::Path path;
  std::optional<std::string> old_value;  ///< leafs
  std::optional<std::string> new_value;
};

/// A leaf or a VLAN range of a party without which the message would not come.
struct Detail {
  Standing standing = Standing::unchanged;
  element::Path path;
  std::optional<std::string> old_value;  ///< leafs with a value
  std::optional<std::string> new_value;
};

/// One side of a conflict: a list entry of the smallest configuration that draws the message.
struct Party {
  Standing standing = Standing::unchanged;  ///< `changed`: the entry stays, a detail of it is changed
  element::Path path;
  std::string group;      ///< "vpls-group campus", with its family; empty outside the VPNs, as the others where they
  std::string vpn;        ///< do not apply
  std::string interface;  ///< access interface, static member, snooping interface or uplink
  std::string neighbor;
  std::vector<Detail> details;
  std::size_t place = 0;  ///< its number among the places of the search
};

/// Two configurations of operator's nodes.
struct SmallestCommit {
  element::Tree running;
  element::Tree candidate;
};

/// A message of the validation library and what draws it.
struct Fault {
  host::PointVerdict verdict;        ///< as the library gave it when the fault was found
  std::vector<ChangePart> change;    ///< the smallest part of the change that draws it, in schema order
  std::vector<ChangePart> scaffold;  ///< entries that the part needs above itself and that other parts stand on, too
  std::vector<Party> parties;        ///< what the commit touches first, then the rest, each in schema order
  SmallestCommit smallest;           ///< the smallest configurations that draw it
  std::uint64_t enough = 0;  ///< a limit: so many parts of the change are enough to take back; 0: all are needed
  bool in_running = false;   ///< the running configuration has the fault: the change only makes the library look
  bool complete = true;      ///< false: a bound ended the search, so that something smaller may draw it, too
};

struct Diagnosis {
  std::vector<Fault> faults;  ///< the device's verdict first, then in the order in which they were found
  std::uint64_t calls = 0;    ///< how often the library was asked about a reduced commit
  bool complete = true;       ///< false: a bound or a breach ended the search, so that there may be further faults
  std::string breach;  ///< what the library did against its contract when it was asked about the rest of the commit
};

}  // namespace diagnosis

#endif
