#ifndef BENCH_ASKED_POINT_H
#define BENCH_ASKED_POINT_H

#include "bench/point_commits.h"
#include "confd_dp.h"
#include "host/run/plugin.h"
#include "host/run/triggered_points.h"
#include "host/seam/host_session.h"

namespace bench {

/// One validation point of a commit, ready to be asked of a library as the element would ask it. Throws where the
/// commit does not fire the point. Commit, plug-in and seam must outlive it; the seam serves the commit.
class AskedPoint {
 public:
  AskedPoint(const PointCommit &commit, const host::Plugin &plugin, host::HostSession &session);
  AskedPoint(const AskedPoint &) = delete;
  AskedPoint &operator=(const AskedPoint &) = delete;

  /// Asks once, from a new account. Throws when the point does not accept.
  void validate();

 private:
  const host::Plugin &plugin_;
  host::HostSession &session_;
  host::TriggeredPoint triggered_;
  confd_trans_ctx context_{};
  confd_hkeypath_t path_;
  confd_value_t value_;
};

}  // namespace bench

#endif
