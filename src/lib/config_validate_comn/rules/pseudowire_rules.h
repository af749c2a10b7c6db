#ifndef CONFIG_VALIDATE_COMN_RULES_PSEUDOWIRE_RULES_H
#define CONFIG_VALIDATE_COMN_RULES_PSEUDOWIRE_RULES_H

// What the pseudowire rules of VPLS and VPWS share: one neighbour and pw-id is one key, whichever family it came from.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "confd_dp.h"
#include "config_validate_vpn/shared/pseudowire_map.h"

/// Values read of each entry of an internal pseudowire list.
constexpr std::size_t kValuesPerEntry = 6;

/// An internal list with one entry for each pseudowire of a family.
struct pw_list_t {
  const char *path;
  std::array<std::size_t, 2> owned;                     ///< the two values that are text and own memory
  st_peer_info_t (*read)(const confd_value_t *values);  ///< asserts the types of an entry's values and copies them
};

/// Adds the pseudowires that the transaction would leave configured to the committing map. A pw-id that its neighbour
/// already has there, from either family, is rejected: -1 with the message set. A failed read ends the list: 0.
std::int32_t add_committing_pws(std::int32_t sock, confd_trans_ctx *tctx, const pw_list_t &list,
                                val_pw_map_t &committing);

/// Adds the pseudowires of the CDB session's datastore to the map. Of two with one key the first stays; that is no
/// error here.
void add_running_pws(int cdb_socket, const pw_list_t &list, val_pw_map_t &running);

/// Rejects when the running configuration has a pseudowire with this pw-id towards the neighbour, whoever owns it: 0,
/// or -1 with the message set.
std::int32_t config_validate_pw_id_not_assigned(confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                std::uint32_t peer_addr, std::uint32_t pw_id);

/// Whether a reported change gives the leaf pw-id a new value.
bool is_pw_id_set(const confd_hkeypath_t *kp, confd_iter_op op, const confd_value_t *newv);

/// A pseudowire's neighbour in dotted notation.
std::string get_peer_text(std::uint32_t peer_addr);

#endif
