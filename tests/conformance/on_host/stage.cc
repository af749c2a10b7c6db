// The element's host as the cases see it: two hand-written configurations, and what leads from one to the other.

#include "tests/conformance/stage.h"

#include <stdexcept>
#include <utility>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"
#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/schema/schema.h"
#include "host/seam/host_session.h"

namespace conformance {

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

element::Value element_value(const Value &value) {
  switch (value.type) {
    case C_BUF:
      return value.bytes;
    case C_UINT32:
      return static_cast<std::uint32_t>(value.number);
    case C_INT32:
      return static_cast<std::int32_t>(value.number);
    case C_IPV4:
      return element::Ipv4{static_cast<std::uint32_t>(value.number)};
    case C_ENUM_VALUE:
      return element::Enumeration{static_cast<std::int32_t>(value.number)};
    case C_XMLTAG:
      return element::Empty{};
    default:
      return {};
  }
}

std::vector<element::Value> element_values(const Values &values) {
  std::vector<element::Value> converted;
  for (const Value &value : values) converted.push_back(element_value(value));
  return converted;
}

std::string entry_path(std::string_view list, const Values &keys) {
  std::string path(list);
  char before = '{';
  for (const Value &key : keys) {
    path += before + element::quoted_key(scripted::to_text(key));
    before = ' ';
  }
  return path + '}';
}

void put_fields(element::Tree &tree, const std::string &node, const Fields &fields) {
  for (const Field &field : fields) {
    if (field.value.type != C_NOEXISTS) tree.put(node + '/' + field.name, element_value(field.value));
  }
}

void put_entry(element::Tree &tree, std::string_view list, const Values &keys, const Fields &fields) {
  tree.put_entry(list, element_values(keys));
  put_fields(tree, entry_path(list, keys), fields);
}

host::SeamFunction function_named(std::string_view name) {
  for (std::size_t i = 0; i < host::seam_function_count; ++i) {
    const auto function = static_cast<host::SeamFunction>(i);
    if (host::name(function) == name) return function;
  }
  throw std::logic_error("the seam has no function " + std::string(name));
}

class HostStage : public Stage {
 public:
  void put_in_running(std::string_view list, const Values &keys, const Fields &fields) override {
    put_entry(running_, list, keys, fields);
  }

  void put_in_candidate(std::string_view list, const Values &keys, const Fields &fields) override {
    put_entry(candidate_, list, keys, fields);
  }

  void put_container(std::string_view path, const Fields &fields) override {
    candidate_.put(path);
    put_fields(candidate_, std::string(path), fields);
  }

  void create_entry(std::string_view list, const Values &keys, const Fields &fields) override {
    put_in_candidate(list, keys, fields);
  }

  void delete_entry(std::string_view list, const Values &keys, const Fields &fields) override {
    put_in_running(list, keys, fields);
  }

  void modify_entry(std::string_view list, const Values &keys) override { put(list, keys); }

  void set_leaf(std::string_view path, const Value &before, const Value &after) override {
    if (before.type != C_NOEXISTS) running_.put(path, element_value(before));
    candidate_.put(path, element_value(after));
  }

  void delete_leaf(std::string_view path, const Value &before) override { running_.put(path, element_value(before)); }
  void create_empty_leaf(std::string_view path) override { candidate_.put(path, element::Empty{}); }

  void add_interface(std::string_view name, std::uint32_t limid, std::int32_t ifindex) override {
    interfaces_.push_back({std::string(name), limid, ifindex});
  }

  void set_vpn_max(std::optional<std::uint32_t> limit) override { limits_.vpn_max = limit; }
  void set_access_ports(std::optional<std::uint32_t> limit) override { limits_.access_ports = limit; }

  void open() override {
    running_.sort();
    candidate_.sort();
    transaction_ = std::make_unique<element::Transaction>(std::move(running_), std::move(candidate_));
    profile_ = element::Profile(limits_, std::move(interfaces_));
    session_ = std::make_unique<host::HostSession>(profile_);
    session_->serve(transaction_.get());
    context_.thandle = session_->transaction_handle();
    context_.vcb_opaque = session_->middleware();
  }

  int socket() override { return session_->maapi_socket(); }
  confd_trans_ctx &context() override { return context_; }

  void fail_next(std::string_view name) override {
    const host::SeamFunction function = function_named(name);
    session_->injected_failure = {function, session_->statistics.calls[static_cast<std::size_t>(function)] + 1, false};
  }

  std::string error() override { return context_.error.str; }
  std::vector<int> timeouts() override { return session_->statistics.timeouts; }
  std::vector<std::string> trace() override { return session_->statistics.trace; }

  std::size_t left_open() override {
    if (session_ == nullptr) return 0;
    const host::CallStatistics &statistics = session_->statistics;
    return static_cast<std::size_t>(statistics.open_cursors + statistics.open_sessions + statistics.owned_values);
  }

 private:
  element::Tree running_{schema()};
  element::Tree candidate_{schema()};
  element::CardLimits limits_;
  std::vector<element::Interface> interfaces_;
  element::Profile profile_;
  std::unique_ptr<element::Transaction> transaction_;
  std::unique_ptr<host::HostSession> session_;
  confd_trans_ctx context_{};
};

}  // namespace

std::unique_ptr<Stage> make_stage() { return std::make_unique<HostStage>(); }

}  // namespace conformance
