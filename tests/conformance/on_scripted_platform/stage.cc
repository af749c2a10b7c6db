// The scripted platform as the cases see it: what follows from a change in a real datastore is spelled out here.

#include "tests/conformance/stage.h"

#include <utility>

#include "tests/support/platform.h"

namespace conformance {

namespace {

class ScriptedStage : public Stage {
 public:
  void put_in_running(std::string_view list, const Values &keys, const Fields &fields) override {
    put_entry(platform_.running(), list, keys, fields);
  }

  void put_in_candidate(std::string_view list, const Values &keys, const Fields &fields) override {
    put_entry(platform_.candidate(), list, keys, fields);
  }

  void put_container(std::string_view path, const Fields &fields) override {
    put_leafs(platform_.candidate(), std::string(path), fields);
    platform_.object(path, values_of({}, fields));
  }

  void create_entry(std::string_view list, const Values &keys, const Fields &fields) override {
    put_in_candidate(list, keys, fields);
    platform_.change_entry(list, keys, MOP_CREATED);
    for (const Field &field : fields) {
      platform_.change(entry_path(list, keys) + '/' + field.name, MOP_VALUE_SET, field.value);
    }
  }

  void delete_entry(std::string_view list, const Values &keys, const Fields &fields) override {
    put_in_running(list, keys, fields);
    platform_.change_entry(list, keys, MOP_DELETED);
  }

  void modify_entry(std::string_view list, const Values &keys) override {
    put(list, keys);
    platform_.change_entry(list, keys, MOP_MODIFIED);
  }

  void set_leaf(std::string_view path, const Value &before, const Value &after) override {
    if (before.type != C_NOEXISTS) platform_.running().leaf(path, before);
    platform_.leaf(path, after);
    platform_.change(path, MOP_VALUE_SET, after);
  }

  void delete_leaf(std::string_view path, const Value &before) override {
    platform_.running().leaf(path, before);
    platform_.change(path, MOP_DELETED);
  }

  void create_empty_leaf(std::string_view path) override {
    platform_.leaf(path);
    platform_.change(path, MOP_CREATED);
  }

  void add_interface(std::string_view name, std::uint32_t limid, std::int32_t ifindex) override {
    platform_.interface(name, limid, ifindex);
  }

  void set_vpn_max(std::optional<std::uint32_t> limit) override { platform_.limits.vpn_max = limit; }
  void set_access_ports(std::optional<std::uint32_t> limit) override { platform_.limits.access_ports = limit; }
  void open() override {}
  int socket() override { return platform_.socket(); }
  confd_trans_ctx &context() override { return platform_.context(); }
  void fail_next(std::string_view function) override { platform_.fail(function, platform_.count(function) + 1); }
  std::string error() override { return platform_.error(); }
  std::vector<int> timeouts() override { return platform_.timeouts(); }

  std::vector<std::string> trace() override {
    std::vector<std::string> texts;
    for (const scripted::TraceCall &call : platform_.trace()) texts.push_back(call.category + ": " + call.text);
    return texts;
  }

  std::size_t left_open() override { return platform_.leaks().size(); }

 private:
  static Values values_of(Values values, const Fields &fields) {
    for (const Field &field : fields) values.push_back(field.value);
    return values;
  }

  static std::string entry_path(std::string_view list, const Values &keys) {
    scripted::Path path = scripted::parse_path(list);
    for (const Value &key : keys) path.back().keys.push_back(scripted::to_text(key));
    return scripted::to_text(path);
  }

  static void put_leafs(scripted::Datastore &datastore, const std::string &node, const Fields &fields) {
    for (const Field &field : fields) {
      if (field.value.type != C_NOEXISTS) datastore.leaf(node + '/' + field.name, field.value);
    }
  }

  static void put_entry(scripted::Datastore &datastore, std::string_view list, const Values &keys,
                        const Fields &fields) {
    datastore.entry(list, values_of(keys, fields), keys.size());
    put_leafs(datastore, entry_path(list, keys), fields);
  }

  scripted::Platform platform_;
};

}  // namespace

std::unique_ptr<Stage> make_stage() { return std::make_unique<ScriptedStage>(); }

}  // namespace conformance
