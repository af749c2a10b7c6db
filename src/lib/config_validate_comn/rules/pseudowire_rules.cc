#include "config_validate_comn/rules/pseudowire_rules.h"

#include <arpa/inet.h>

#include <algorithm>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/model_tags.h"

namespace {

using pw_batch_t = scoped_batch<kValuesPerEntry, 2>;

std::pair<std::uint32_t, std::uint32_t> get_pw_key(const st_peer_info_t &pw) { return {pw.peer_addr, pw.pw_id}; }

// A pw-id must be unique per neighbor. The first user of the pair stays in the map; the message names the pw-id only.
std::int32_t add_unique_pw(confd_trans_ctx *tctx, st_peer_info_t pw, val_pw_map_t &committing) {
  const auto key = get_pw_key(pw);
  if (committing.emplace(key, std::move(pw)).second) return CONFD_OK;

  confd_trans_seterr(tctx, "The PW ID %u must be unique per neighbor", key.second);
  return CONFD_ERR;
}

std::int32_t add_unique_pws(confd_trans_ctx *tctx, const pw_list_t &list, const pw_batch_t &batch,
                            val_pw_map_t &committing) {
  for (int i = 0; i < batch.count(); ++i) {
    if (add_unique_pw(tctx, list.read(batch.entry(i)), committing) == CONFD_ERR) return CONFD_ERR;
  }
  return CONFD_OK;
}

}  // namespace

std::int32_t add_committing_pws(std::int32_t sock, confd_trans_ctx *tctx, const pw_list_t &list,
                                val_pw_map_t &committing) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "%s", list.path);
  do {
    pw_batch_t batch(list.owned);
    if (!batch.fetch(mc)) break;
    if (add_unique_pws(tctx, list, batch, committing) == CONFD_ERR) return CONFD_ERR;
  } while (mc.n != 0);
  return CONFD_OK;
}

// An entry's texts are freed as soon as they are copied, and nothing looks at the result of a batch's read: entries
// that it did not fill stop the process on their type.
void add_running_pws(int cdb_socket, const pw_list_t &list, val_pw_map_t &running) {
  const int total = cdb_num_instances(cdb_socket, "%s", list.path);
  for (int index = 0; index < total; index += kBatchEntries) {
    pw_batch_t batch(list.owned);
    batch.fetch(cdb_socket, index, std::min(kBatchEntries, total - index), list.path);
    for (int i = 0; i < batch.count(); ++i) {
      st_peer_info_t pw = list.read(batch.entry(i));
      batch.free_next();
      const auto key = get_pw_key(pw);
      running.emplace(key, std::move(pw));
    }
  }
}

std::int32_t config_validate_pw_id_not_assigned(confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                std::uint32_t peer_addr, std::uint32_t pw_id) {
  const auto found = running.find({peer_addr, pw_id});
  if (found == running.end()) return CONFD_OK;

  const st_peer_info_t &owner = found->second;
  confd_trans_seterr(
      tctx,
      "The PW ID %u was formerly assigned to VPN %s from Group %s. Delete VPN %s, its neighbor or backup-neighbor before applying changes",
      owner.pw_id, owner.vpn_name.c_str(), owner.group_name.c_str(), owner.vpn_name.c_str());
  return CONFD_ERR;
}

bool is_pw_id_set(const confd_hkeypath_t *kp, confd_iter_op op, const confd_value_t *newv) {
  if (op != MOP_VALUE_SET || newv == nullptr) return false;
  const confd_value_t &leaf = kp->v[0][0];
  return leaf.type == C_XMLTAG && leaf.val.xmltag.tag == model_tag::pw_id;
}

std::string get_peer_text(std::uint32_t peer_addr) {
  char text[INET_ADDRSTRLEN] = "";
  inet_ntop(AF_INET, &peer_addr, text, sizeof(text));
  return text;
}
