#include "config_validate_comn/daemon/interface_encapsulation.h"

#include "confd_maapi.h"

bool is_configured_untagged(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path) {
  constexpr std::int32_t kUntagged = 1;
  std::int32_t setting = 2;
  if (maapi_exists(sock, tctx->thandle, "%s", path.c_str()) == 1) {
    maapi_get_enum_value_elem(sock, tctx->thandle, &setting, "%s", path.c_str());
  }
  return setting == kUntagged;
}

// A count of -1 converts to a length that no array can have.
encap_ranges_t::encap_ranges_t(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path)
    : count_(maapi_num_instances(sock, tctx->thandle, "%s", path.c_str())),
      values_(std::make_unique<confd_value_t[]>(2 * static_cast<std::size_t>(count_))) {
  maapi_init_cursor(sock, tctx->thandle, &mc_, "%s", path.c_str());
  is_read_ = maapi_get_objects(&mc_, values_.get(), 2, &count_) >= 0;
}
