// What each platform call costs that reads the element's data, at growing sizes: a call that looks an entry up may grow
// with the logarithm of the size, a step or a batch not at all. Entries are asked for in random order, always the same.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/shapes.h"
#include "confd_cdb.h"
#include "confd_lib.h"
#include "confd_maapi.h"
#include "element/datastore/transaction.h"
#include "host/seam/host_session.h"
#include "limid.h"
#include "qnconfd.h"

namespace {

constexpr const char *kAttachments = "/internal/int-sub-vpls-vpn-ac";
constexpr const char *kBridgeDomain = "/internal/int-vpls-group{%s}/int-vpls-vpn{%s %u}/int-vpls-bd";
constexpr const char *kBridgeDomainVlan =
    "/internal/int-vpls-group{%s}/int-vpls-vpn{%s %u}/int-vpls-bd/int-vpls-bd-vlan";
constexpr const char *kBridgeDomainTls = "/internal/int-vpls-group{%s}/int-vpls-vpn{%s %u}/int-vpls-bd/int-vpls-bd-tls";
constexpr int kAttachmentValues = 4;
constexpr int kBatch = 64;

struct Attachment {
  std::string group;
  std::string vpn;
  std::uint32_t id;
  std::string interface;
};

/// A commit and its VPLS attachments in random order.
class Stage {
 public:
  explicit Stage(std::size_t size) : Stage(bench::make_commit(schema(), bench::Shape::many_ports, size)) {}

  const element::Profile &profile() const { return profile_; }
  const element::Transaction &transaction() const { return *transaction_; }
  int attachment_count() const { return static_cast<int>(attachments_.size()); }

  Attachment &next() {
    position_ = (position_ + 1) % attachments_.size();
    return attachments_[position_];
  }

 private:
  explicit Stage(bench::Commit commit) : profile_(std::move(commit.profile)) {
    transaction_ = make_transaction(std::move(commit.running), std::move(commit.candidate), profile_);
    for (const element::Node &entry : transaction_->candidate.find(kAttachments)->children) {
      attachments_.push_back({to_text(entry.keys[0]), to_text(entry.keys[1]), std::get<std::uint32_t>(entry.keys[2]),
                              to_text(entry.keys[3])});
    }
    std::shuffle(attachments_.begin(), attachments_.end(), std::mt19937(1));
  }

  static const element::Schema &schema() {
    static const element::Schema schema;
    return schema;
  }

  element::Profile profile_;
  std::unique_ptr<element::Transaction> transaction_;
  std::vector<Attachment> attachments_;
  std::size_t position_ = 0;
};

/// A seam over the stage of a size. Stages are kept, for making one takes longer than measuring it.
class Running {
 public:
  explicit Running(const benchmark::State &state) : stage_(stage_of(static_cast<std::size_t>(state.range(0)))) {
    session_.serve(&stage_.transaction());
  }

  Stage &stage() { return stage_; }
  host::HostSession &session() { return session_; }
  int sock() const { return session_.maapi_socket(); }
  int handle() const { return session_.transaction_handle(); }

 private:
  static Stage &stage_of(std::size_t size) {
    static std::map<std::size_t, Stage> stages;
    return stages.try_emplace(size, size).first->second;
  }

  Stage &stage_;
  host::HostSession session_{stage_.profile()};
};

/// A benchmark that measures a call which answers other than expected is worth nothing.
void require(bool answered) {
  if (!answered) throw std::logic_error("a platform call did not answer as expected");
}

/// Borrows the text.
confd_value_t text_value(std::string &text) {
  confd_value_t value{};
  value.type = C_BUF;
  value.val.buf = {static_cast<unsigned int>(text.size()), reinterpret_cast<unsigned char *>(text.data())};
  return value;
}

confd_value_t number_value(std::uint32_t number) {
  confd_value_t value{};
  value.type = C_UINT32;
  value.val.u32 = number;
  return value;
}

void num_instances(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const int count = maapi_num_instances(running.sock(), running.handle(), "%s", kAttachments);
    require(count == running.stage().attachment_count());
  }
}

void exists(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    require(maapi_exists(running.sock(), running.handle(), "%s{%s %s %u %s}", kAttachments, entry.group.c_str(),
                         entry.vpn.c_str(), entry.id, entry.interface.c_str()) == 1);
  }
}

void open_and_destroy_cursor(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    maapi_cursor cursor{};
    require(maapi_init_cursor(running.sock(), running.handle(), &cursor, "%s", kAttachments) == CONFD_OK);
    maapi_destroy_cursor(&cursor);
  }
}

void get_next(benchmark::State &state) {
  Running running(state);
  maapi_cursor cursor{};
  for (auto _ : state) {
    if (cursor.n == 0) {
      maapi_destroy_cursor(&cursor);
      require(maapi_init_cursor(running.sock(), running.handle(), &cursor, "%s", kAttachments) == CONFD_OK);
    }
    require(maapi_get_next(&cursor) == CONFD_OK);
  }
  maapi_destroy_cursor(&cursor);
}

void find_next(benchmark::State &state) {
  Running running(state);
  maapi_cursor cursor{};
  require(maapi_init_cursor(running.sock(), running.handle(), &cursor, "%s", kAttachments) == CONFD_OK);
  for (auto _ : state) {
    Attachment &entry = running.stage().next();
    std::array<confd_value_t, kAttachmentValues> keys{text_value(entry.group), text_value(entry.vpn),
                                                      number_value(entry.id), text_value(entry.interface)};
    require(maapi_find_next(&cursor, CONFD_FIND_SAME_OR_NEXT, keys.data(), kAttachmentValues) == CONFD_OK);
    require(cursor.n == kAttachmentValues);
  }
  maapi_destroy_cursor(&cursor);
}

void get_elem(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    confd_value_t value{};
    require(maapi_get_elem(running.sock(), running.handle(), &value, kBridgeDomainVlan, entry.group.c_str(),
                           entry.vpn.c_str(), entry.id) == CONFD_OK);
    confd_free_value(&value);
  }
}

void get_u_int32_elem(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    std::uint32_t vlan = 0;
    require(maapi_get_u_int32_elem(running.sock(), running.handle(), &vlan,
                                   "/internal/int-sub-vpls-vpn-bd{%s %s %u}/int-vpls-bd-vlan", entry.group.c_str(),
                                   entry.vpn.c_str(), entry.id) == CONFD_OK);
  }
}

void get_enum_value_elem(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    std::int32_t setting = 0;
    require(maapi_get_enum_value_elem(running.sock(), running.handle(), &setting, kBridgeDomainTls, entry.group.c_str(),
                                      entry.vpn.c_str(), entry.id) == CONFD_OK);
  }
}

void get_object(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    std::array<confd_value_t, 2> values{};
    require(maapi_get_object(running.sock(), running.handle(), values.data(), 2, kBridgeDomain, entry.group.c_str(),
                             entry.vpn.c_str(), entry.id) > 0);
    for (confd_value_t &value : values) confd_free_value(&value);
  }
}

using Batch = std::array<confd_value_t, kBatch * kAttachmentValues>;

void free_entries(Batch &batch, int entries) {
  for (int i = 0; i < entries * kAttachmentValues; ++i) confd_free_value(&batch[static_cast<std::size_t>(i)]);
}

/// One batch of 64 entries from a list's begin.
void get_objects(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    maapi_cursor cursor{};
    require(maapi_init_cursor(running.sock(), running.handle(), &cursor, "%s", kAttachments) == CONFD_OK);
    Batch batch{};
    int entries = kBatch;
    require(maapi_get_objects(&cursor, batch.data(), kAttachmentValues, &entries) == kAttachmentValues);
    free_entries(batch, entries);
    maapi_destroy_cursor(&cursor);
  }
}

void cdb_num_instances(benchmark::State &state) {
  Running running(state);
  const QnConfdCdbSessionBase session(qnconfd_instance_get(running.session().middleware()), CDB_RUNNING, false);
  for (auto _ : state) require(::cdb_num_instances(session.Socket(), "%s", kAttachments) > 0);
}

/// One batch of 64 entries from a list's middle.
void cdb_get_objects(benchmark::State &state) {
  Running running(state);
  const QnConfdCdbSessionBase session(qnconfd_instance_get(running.session().middleware()), CDB_RUNNING, false);
  const int middle = running.stage().attachment_count() / 2;
  for (auto _ : state) {
    Batch batch{};
    require(::cdb_get_objects(session.Socket(), batch.data(), kAttachmentValues, middle, kBatch, "%s", kAttachments) >=
            0);
    free_entries(batch, kBatch);
  }
}

confd_iter_ret stop_at_first(confd_hkeypath_t *, confd_iter_op op, confd_value_t *, confd_value_t *, void *state) {
  *static_cast<int *>(state) = op;
  return ITER_STOP;
}

/// Whether an entry's VPN changed; most did not.
void keypath_diff_iterate(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    int operation = 0;
    require(maapi_keypath_diff_iterate(running.sock(), running.handle(), stop_at_first, 0, &operation,
                                       "/mpls/l2vpn-config/l2vpn/vpls-group{%s}/vpn{%s}/bridge-domain",
                                       entry.group.c_str(), entry.vpn.c_str()) == CONFD_OK);
    benchmark::DoNotOptimize(operation);
  }
}

/// A name to its ifindex and back, over the logical identifier.
void interface_conversions(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) {
    const Attachment &entry = running.stage().next();
    limid_t limid = 0;
    std::int32_t ifindex = 0;
    std::array<char, 64> name{};
    require(limid_from_intfname(entry.interface.c_str(), &limid) == 0);
    require(limid_to_ifindex(limid, &ifindex) == 0);
    require(limid_from_ifindex(ifindex, &limid) == 0);
    require(limid_to_intfname(limid, name.data(), name.size()) == 0);
    require(entry.interface == name.data());
  }
}

void is_valid_intfname(benchmark::State &state) {
  Running running(state);
  for (auto _ : state) require(valid_intfname(running.stage().next().interface.c_str()));
}

void sizes(benchmark::internal::Benchmark *benchmark) {
  benchmark->ArgName("access_interfaces")->Arg(1000)->Arg(10000)->Arg(100000);
}

BENCHMARK(num_instances)->Apply(sizes);
BENCHMARK(exists)->Apply(sizes);
BENCHMARK(open_and_destroy_cursor)->Apply(sizes);
BENCHMARK(get_next)->Apply(sizes);
BENCHMARK(find_next)->Apply(sizes);
BENCHMARK(get_elem)->Apply(sizes);
BENCHMARK(get_u_int32_elem)->Apply(sizes);
BENCHMARK(get_enum_value_elem)->Apply(sizes);
BENCHMARK(get_object)->Apply(sizes);
BENCHMARK(get_objects)->Apply(sizes);
BENCHMARK(cdb_num_instances)->Apply(sizes);
BENCHMARK(cdb_get_objects)->Apply(sizes);
BENCHMARK(keypath_diff_iterate)->Apply(sizes);
BENCHMARK(interface_conversions)->Apply(sizes);
BENCHMARK(is_valid_intfname)->Apply(sizes);

}  // namespace
