#ifndef CONFIG_VALIDATE_COMN_RULES_SERVICE_PORT_NAMES_H
#define CONFIG_VALIDATE_COMN_RULES_SERVICE_PORT_NAMES_H

#include <string>

// What the rules take for the name of a service port. They differ on purpose, and none may be put in another's place:
// an interface can be a service port to one rule and none to the next.

/// Mixed uses of a service port, and VLAN actions of one in a VPWS VPN: the word stands anywhere in the name.
inline bool holds_service_port(const std::string &interface) {
  return interface.find("service-port") != std::string::npos;
}

/// The bridge MTU: the name begins with the word.
inline bool begins_with_service_port(const std::string &interface) { return interface.rfind("service-port", 0) == 0; }

/// Warnings about transparent LAN services: with the dash before the number too, so that an interface that is just
/// named "service-port" is none.
inline bool begins_with_service_port_dash(const std::string &interface) {
  return interface.rfind("service-port-", 0) == 0;
}

/// The kinds of a VPLS VPN's access interfaces: the name begins with "service".
inline bool begins_with_service(const std::string &interface) { return interface.rfind("service", 0) == 0; }

#endif
