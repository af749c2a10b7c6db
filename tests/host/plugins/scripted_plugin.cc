// A validation library that does what the name of the VPWS group under validation tells it, so that a test can have it
// keep the seam's contract or break it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>

#include "confd_dp.h"
#include "confd_maapi.h"
#include "qnconfd.h"

extern "C" {
std::int32_t lib_init(void **state);
std::int32_t get_validation_point(char *name, std::int32_t length);
std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);
std::int32_t lib_finish(void **state);
}

namespace {

std::string shown(const confd_value_t &value) {
  switch (value.type) {
    case C_BUF:
      return std::string(reinterpret_cast<const char *>(value.val.buf.ptr), value.val.buf.size);
    case C_UINT32:
      return std::to_string(value.val.u32);
    case C_NOEXISTS:
      return "none";
    default:
      return "type " + std::to_string(value.type);
  }
}

std::int32_t show(confd_trans_ctx *tctx, const confd_hkeypath_t *kp, const confd_value_t *newval) {
  char path[512];
  confd_pp_kpath(path, sizeof path, kp);
  confd_trans_seterr(tctx, "%s at %s, new value %s", tctx->validate_opaque, path, shown(*newval).c_str());
  return CONFD_VALIDATION_WARN;
}

confd_value_t read_group(confd_trans_ctx *tctx, std::int32_t sock, const std::string &group) {
  confd_value_t value{};
  maapi_get_elem(sock, tctx->thandle, &value, "/mpls/l2vpn-config/l2vpn/vpws-group{%s}/name", group.c_str());
  return value;
}

confd_value_t kept_value;
QnConfdCdbSessionBase *kept_session = nullptr;

std::int32_t answer_to(confd_trans_ctx *tctx, std::int32_t sock, const std::string &told) {
  if (told == "answer 7") return 7;
  if (told == "answer -2") return CONFD_EOF;
  if (told == "reject without a text") return CONFD_ERR;
  if (told == "warn without a text") return CONFD_VALIDATION_WARN;
  if (told == "accept with a text" || told == "reject" || told == "warn") {
    confd_trans_seterr(tctx, "told to %s", told.c_str());
    return told == "reject" ? CONFD_ERR : told == "warn" ? CONFD_VALIDATION_WARN : CONFD_OK;
  }
  if (told == "throw") throw std::runtime_error("told to");
  if (told == "allocate too much") throw std::bad_array_new_length();
  if (told.rfind("ask", 0) == 0 || told == "\"ask\"") {
    const std::string path = "/mpls/l2vpn-config/l2vpn/vpws-group{" + told + "}";
    maapi_exists(sock, tctx->thandle, "%s", path.substr(0, 511).c_str());
    maapi_exists(sock, tctx->thandle, "/no/such/node");
  }
  if (told == "keep a value") kept_value = read_group(tctx, sock, told);
  if (told == "keep a session") {
    kept_session = new QnConfdCdbSessionBase(qnconfd_instance_get(tctx->vcb_opaque), CDB_RUNNING, true);
  }
  if (told == "free what is its own") {
    confd_value_t value{};
    value.type = C_BUF;
    value.val.buf = {1, static_cast<unsigned char *>(std::malloc(1))};
    confd_free_value(&value);
  }
  if (told == "keep a cursor") {
    maapi_cursor mc{};
    maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-group");
  }
  return CONFD_OK;
}

}  // namespace

std::int32_t lib_init(void **state) {
  *state = nullptr;
  return 0;
}

std::int32_t get_validation_point(char *name, std::int32_t length) {
  std::snprintf(name, static_cast<std::size_t>(length), "vpn_app_validation");
  return 0;
}

std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval) {
  const std::int32_t sock = qnconfd_maapi_socket_get(tctx->vcb_opaque);
  if (maapi_exists(sock, tctx->thandle, "/mpls/l2vpn-config/l2vpn/vpws-group{show}") == 1) {
    return show(tctx, kp, newval);
  }
  const bool is_name_point = std::string(tctx->validate_opaque) == "vpn_name_valp";
  return is_name_point ? answer_to(tctx, sock, shown(kp->v[0][0])) : CONFD_OK;
}

std::int32_t lib_finish(void **) {
  confd_free_value(&kept_value);
  kept_value = {};
  delete kept_session;
  kept_session = nullptr;
  return 0;
}
