#include "config_validate_comn/daemon/vpls_application_tables.h"

#include <array>

#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"

namespace {

/// The key of a list entry that borrows the text: valid while the text lives, and never freed.
confd_value_t buf_key(std::string &text) {
  confd_value_t key{};
  key.type = C_BUF;
  key.val.buf.size = static_cast<unsigned int>(text.size());
  key.val.buf.ptr = reinterpret_cast<unsigned char *>(text.data());
  return key;
}

confd_value_t uint32_key(std::uint32_t number) {
  confd_value_t key{};
  key.type = C_UINT32;
  key.val.u32 = number;
  return key;
}

}  // namespace

std::uint32_t get_int_vpls_id(int sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn) {
  std::string name = vpn;
  std::array<confd_value_t, 2> keys{buf_key(name), uint32_key(0)};

  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpls-group{%s}/int-vpls-vpn", group.c_str());
  maapi_find_next(&mc, CONFD_FIND_NEXT, keys.data(), static_cast<int>(keys.size()));
  if (mc.n == 0 || GET_BUF(&mc.keys[0]) != vpn) return 0;
  return GET_UINT32(&mc.keys[1]);
}

bool get_vpls_tls(int sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn) {
  const std::uint32_t id = get_int_vpls_id(sock, tctx, group, vpn);
  const std::string entry =
      format_path("/internal/int-vpls-group{%s}/int-vpls-vpn{%s %u}", group.c_str(), vpn.c_str(), id);

  std::int32_t tls = kVplsTlsOff;
  maapi_get_enum_value_elem(sock, tctx->thandle, &tls, "%s/int-vpls-bd/int-vpls-bd-tls", entry.c_str());
  return tls != kVplsTlsOff;
}
