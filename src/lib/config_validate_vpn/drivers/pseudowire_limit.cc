#include "confd_maapi.h"
#include "config_validate_vpn/drivers/vpn_peer.h"

namespace {

// Fixed for every card, unlike the limits that the feature model tells.
constexpr int kMaxPseudowires = 1024;

}  // namespace

// - What is counted are pseudowires, one for each neighbour and backup neighbour of either family; operators know them
//   as neighbours, so the message says so.
// - A failed count (-1) is below the limit and accepts.
std::int32_t config_validate_pw_overflow(std::int32_t sock, confd_trans_ctx *tctx) {
  const int count = maapi_num_instances(sock, tctx->thandle, "/KZ-PWE3-MIB:KZ-PWE3-MIB/pwTable/pwEntry");
  if (count > kMaxPseudowires) {
    confd_trans_seterr(tctx, "Maximum number of neighbors has been exceeded. Attempt to configure %d of %d allowed",
                       count, kMaxPseudowires);
    return CONFD_ERR;
  }
  return CONFD_OK;
}
