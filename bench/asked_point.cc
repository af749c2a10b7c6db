#include "bench/asked_point.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"

namespace bench {
namespace {

host::Firing firing_of(const PointCommit &commit) {
  const std::vector<host::Firing> firings = host::fired_points(*commit.transaction);
  const auto found = std::find_if(firings.begin(), firings.end(),
                                  [&commit](const host::Firing &firing) { return firing.point == commit.point; });
  if (found == firings.end()) throw std::logic_error(fmt::format("the commit does not fire {}", commit.point));
  return *found;
}

}  // namespace

AskedPoint::AskedPoint(const PointCommit &commit, const host::Plugin &plugin, host::Seam &seam)
    : plugin_(plugin), seam_(seam), firing_(firing_of(commit)) {
  seam_.serve(commit.transaction.get());
  context_.mode = CONFD_READ;
  context_.dbname = CONFD_CANDIDATE;
  context_.thandle = seam_.transaction_handle();
  context_.vcb_opaque = seam_.middleware();
  context_.validate_opaque = firing_.point.data();
  host::KeyPath(firing_.path).write(path_);
  value_ = host::lent(firing_.value, *firing_.path.back().schema);
}

void AskedPoint::validate() {
  seam_.account = {};
  const std::int32_t result = plugin_.validate(&context_, &path_, &value_);
  if (result == CONFD_OK) return;
  throw std::logic_error(fmt::format("{} answered {}: {}", firing_.point, result,
                                     context_.error.str == nullptr ? "" : context_.error.str));
}

}  // namespace bench
