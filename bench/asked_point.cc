#include "bench/asked_point.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"

namespace bench {
namespace {

host::TriggeredPoint triggered_point_of(const PointCommit &commit) {
  const std::vector<host::TriggeredPoint> points = host::triggered_points(*commit.transaction);
  const auto found = std::find_if(points.begin(), points.end(),
                                  [&commit](const host::TriggeredPoint &point) { return point.point == commit.point; });
  if (found == points.end()) throw std::logic_error(fmt::format("the commit does not fire {}", commit.point));
  return *found;
}

}  // namespace

AskedPoint::AskedPoint(const PointCommit &commit, const host::Plugin &plugin, host::HostSession &session)
    : plugin_(plugin), session_(session), triggered_(triggered_point_of(commit)) {
  session_.serve(commit.transaction.get());
  context_.mode = CONFD_READ;
  context_.dbname = CONFD_CANDIDATE;
  context_.thandle = session_.transaction_handle();
  context_.vcb_opaque = session_.middleware();
  context_.validate_opaque = triggered_.point.data();
  triggered_.key_path().write(path_);
  value_ = host::borrowed_value(*triggered_.value, *triggered_.node);
}

void AskedPoint::validate() {
  session_.statistics = {};
  const std::int32_t result = plugin_.validate(&context_, &path_, &value_);
  if (result == CONFD_OK) return;
  throw std::logic_error(fmt::format("{} answered {}: {}", triggered_.point, result,
                                     context_.error.str == nullptr ? "" : context_.error.str));
}

}  // namespace bench
