#include <sstream>
#include <string>

#include "config_validate_comn/rules/pseudowire_rules.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/drivers/vpn_peer.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "qnmw_trace.h"

namespace {

// Where the trace says it comes from. Trace filters name this origin, so it is fixed and does not follow the file or
// the line of the call.
constexpr char kTraceCategory[] = "vpn-validation-debug";
constexpr char kTraceFile[] = "src/lib/config_validate_vpn.cc";
constexpr std::size_t kTraceFileLength = 30;
constexpr char kTraceFunction[] = "config_validate_peer_exchange";
constexpr std::size_t kTraceFunctionLength = 29;
constexpr long kTraceLine = 177;
constexpr int kTraceLevel = 12;

static_assert(sizeof(kTraceFile) == kTraceFileLength + 1);
static_assert(sizeof(kTraceFunction) == kTraceFunctionLength + 1);

std::int32_t fill_running(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running) {
  if (fill_config_vpws_peer_running(sock, tctx, running) == CONFD_ERR) return CONFD_ERR;
  if (fill_config_vpls_peer_running(sock, tctx, running) == CONFD_ERR) return CONFD_ERR;
  return CONFD_OK;
}

// Both families are asked about every pseudowire: each looks for a change in its own tree only, and the one that the
// pseudowire does not belong to finds none there and looks up pw-id 0.
std::int32_t check_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                            const st_peer_info_t &pw) {
  if (config_validate_vpws_pw_id_exchange(sock, tctx, running, pw) == CONFD_ERR) return CONFD_ERR;
  if (config_validate_vpls_pw_id_exchange(sock, tctx, running, pw) == CONFD_ERR) return CONFD_ERR;
  return CONFD_OK;
}

// The pw-id goes through to_string, which no locale of the daemon groups into thousands.
void dump_pw_map(std::ostringstream &out, const val_pw_map_t &pws) {
  for (const auto &[key, pw] : pws) {
    out << ".     [" << pw.group_name << ", " << pw.vpn_name << ", " << get_peer_text(pw.peer_addr) << ", "
        << std::to_string(pw.pw_id) << "]\n";
  }
}

// The text is built on every successful run: the trace layer decides by level what becomes of it.
void trace_pw_maps(const val_pw_map_t &running, const val_pw_map_t &committing) {
  zlog_category_t *category = qnmw_trace_register_category(kTraceCategory);
  std::ostringstream out;
  out << ". Running mpls l2vpn PWs config:\n";
  dump_pw_map(out, running);
  out << ". end.\n";
  out << ". Committing mpls l2vpn PWs config:\n";
  dump_pw_map(out, committing);
  out << ". end.\n";
  zlog(category, kTraceFile, kTraceFileLength, kTraceFunction, kTraceFunctionLength, kTraceLine, kTraceLevel, "\n%s",
       out.str().c_str());
}

}  // namespace

std::int32_t config_validate_peer_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &committing) {
  val_pw_map_t running;
  if (fill_running(sock, tctx, running) == CONFD_ERR) return CONFD_ERR;

  for (const auto &[key, pw] : committing) {
    if (check_exchange(sock, tctx, running, pw) == CONFD_ERR) return CONFD_ERR;
  }

  trace_pw_maps(running, committing);
  return CONFD_OK;
}
