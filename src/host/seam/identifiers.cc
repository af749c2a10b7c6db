// The interface identifier manager: it knows the interfaces of the element's profile.

#include <algorithm>

#include "host/seam/host_session.h"
#include "limid.h"

using host::SeamFunction;

namespace {

constexpr int kNamed = 0;
constexpr int kUnknown = -1;

/// The element's profile, or null where there is none or the call is the one that must fail.
const element::Profile *profile_for(SeamFunction function) {
  host::HostSession *session = host::HostSession::active();
  return session == nullptr || session->enter(function) ? nullptr : &session->profile();
}

}  // namespace

int limid_from_intfname(const char *name, limid_t *limid) {
  const element::Profile *profile = profile_for(SeamFunction::limid_from_intfname);
  const element::Interface *interface = profile == nullptr ? nullptr : profile->by_name(name);
  if (interface == nullptr) return kUnknown;
  *limid = interface->logical_id;
  return kNamed;
}

// A name that does not fit is not cut: half a name is another interface's.
int limid_to_intfname(limid_t limid, char *name, size_t len) {
  const element::Profile *profile = profile_for(SeamFunction::limid_to_intfname);
  const element::Interface *interface = profile == nullptr ? nullptr : profile->by_logical_id(limid);
  if (interface == nullptr || interface->name.size() >= len) return kUnknown;
  *std::copy(interface->name.begin(), interface->name.end(), name) = '\0';
  return kNamed;
}

int limid_from_ifindex(int32_t ifindex, limid_t *limid) {
  const element::Profile *profile = profile_for(SeamFunction::limid_from_ifindex);
  const element::Interface *interface = profile == nullptr ? nullptr : profile->by_ifindex(ifindex);
  if (interface == nullptr) return kUnknown;
  *limid = interface->logical_id;
  return kNamed;
}

int limid_to_ifindex(limid_t limid, int32_t *ifindex) {
  const element::Profile *profile = profile_for(SeamFunction::limid_to_ifindex);
  const element::Interface *interface = profile == nullptr ? nullptr : profile->by_logical_id(limid);
  if (interface == nullptr) return kUnknown;
  *ifindex = interface->ifindex;
  return kNamed;
}

bool valid_intfname(const char *name) {
  const element::Profile *profile = profile_for(SeamFunction::valid_intfname);
  return profile != nullptr && profile->by_name(name) != nullptr;
}
