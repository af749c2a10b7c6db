#ifndef TESTS_CONFORMANCE_STAGE_H
#define TESTS_CONFORMANCE_STAGE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "confd_dp.h"
#include "tests/support/value.h"

namespace conformance {

using scripted::Value;
using scripted::Values;

/// What stands below an entry or a container besides keys: a leaf, the head of a container (a tag), or absent().
struct Field {
  std::string name;
  Value value;
};
using Fields = std::vector<Field>;

/// What a case writes down, and what it sees beside the platform's functions. A host that stands behind the seam
/// implements it once. Everything is declared before open(), changes in schema order.
class Stage {
 public:
  virtual ~Stage() = default;

  // Content of one configuration or of both.

  virtual void put_in_running(std::string_view list, const Values &keys, const Fields &fields) = 0;
  virtual void put_in_candidate(std::string_view list, const Values &keys, const Fields &fields) = 0;
  void put(std::string_view list, const Values &keys, const Fields &fields = {}) {
    put_in_running(list, keys, fields);
    put_in_candidate(list, keys, fields);
  }

  /// A container's content, every child named in schema order, in the candidate.
  virtual void put_container(std::string_view path, const Fields &fields) = 0;

  // Changes of the transaction, content included.

  virtual void create_entry(std::string_view list, const Values &keys, const Fields &fields) = 0;
  virtual void delete_entry(std::string_view list, const Values &keys, const Fields &fields) = 0;

  /// An entry that is in both, with a change somewhere below it that is declared next.
  virtual void modify_entry(std::string_view list, const Values &keys) = 0;
  virtual void set_leaf(std::string_view path, const Value &before, const Value &after) = 0;
  virtual void delete_leaf(std::string_view path, const Value &before) = 0;
  virtual void create_empty_leaf(std::string_view path) = 0;

  // The card.

  virtual void add_interface(std::string_view name, std::uint32_t limid, std::int32_t ifindex) = 0;
  virtual void set_vpn_max(std::optional<std::uint32_t> limit) = 0;
  virtual void set_access_ports(std::optional<std::uint32_t> limit) = 0;

  /// From here on the platform's functions answer.
  virtual void open() = 0;

  virtual int socket() = 0;
  virtual confd_trans_ctx &context() = 0;

  /// Makes the next call of a function fail.
  virtual void fail_next(std::string_view function) = 0;

  virtual std::string error() = 0;
  virtual std::vector<int> timeouts() = 0;
  virtual std::vector<std::string> trace() = 0;  ///< "category: text"

  /// Cursors, sessions and values that are still out.
  virtual std::size_t left_open() = 0;
};

std::unique_ptr<Stage> make_stage();

}  // namespace conformance

#endif
