#include "config_validate_comn/daemon/interface_identifiers.h"

#include <array>
#include <cstring>

limid_t get_limid_by_intf_name(const std::string &name) {
  limid_t limid = 0;
  limid_from_intfname(name.c_str(), &limid);
  return limid;
}

std::int32_t get_ifindex_by_limid(limid_t limid) {
  std::int32_t ifindex = 0;
  limid_to_ifindex(limid, &ifindex);
  return ifindex;
}

limid_t get_limid_by_ifindex(std::int32_t ifindex) {
  limid_t limid = 0;
  limid_from_ifindex(ifindex, &limid);
  return limid;
}

std::string get_intf_name_by_limid(limid_t limid) {
  std::array<char, 64> name{};
  limid_to_intfname(limid, name.data(), name.size());
  return {name.data(), strnlen(name.data(), name.size())};
}
