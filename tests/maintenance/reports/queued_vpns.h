#ifndef TESTS_MAINTENANCE_REPORTS_QUEUED_VPNS_H
#define TESTS_MAINTENANCE_REPORTS_QUEUED_VPNS_H

#include <cstdint>
#include <string>
#include <vector>

#include "diagnosis/diagnose.h"
#include "maintenance/queue/queue_search.h"

/// A VPWS VPN's attachment as the queue's tests have it: on port 1 to 4 of the element of the examples.
struct QueuedVpn {
  std::string name;
  int port = 1;
  int vlan = 0;
};

/// A configuration with these VPNs, in XML.
std::string configuration_with(const std::vector<QueuedVpn> &vpns);

/// An edit that makes the VPN, or changes its port's VLAN; without a VLAN it takes the VPN away.
std::string edit_of(const QueuedVpn &vpn);

/// Changes that wait on a running configuration, and the library that is asked about them.
class QueueOnElement {
 public:
  explicit QueueOnElement(const std::string &running);

  void add_edit(const std::string &name, const std::string &text);
  void add_candidate(const std::string &name, const std::string &text);

  queue::Queue search(const diagnosis::Budget &budget = {}, std::size_t most_sets = queue::kMostSets);

  /// How many changes an order takes in, each step asked; what is rejected is passed over.
  std::size_t goes_through(const std::vector<std::size_t> &order);

  element::ConfigurationFile running;
  std::vector<queue::QueuedChange> changes;
};

#endif
