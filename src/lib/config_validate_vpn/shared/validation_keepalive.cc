#include "config_validate_vpn/shared/validation_keepalive.h"

#include <chrono>

namespace {

constexpr std::chrono::duration<double> kExtensionInterval{36.0};
constexpr int kTimeoutSeconds = 120;

}  // namespace

std::int32_t validation_keepalive(confd_trans_ctx *tctx) {
  using clock = std::chrono::system_clock;
  static clock::time_point last_extension = clock::now();

  const clock::time_point now = clock::now();
  const std::chrono::duration<double> elapsed = now - last_extension;
  if (elapsed <= kExtensionInterval) return 0;

  last_extension = now;
  return confd_data_set_timeout(tctx, kTimeoutSeconds);
}
