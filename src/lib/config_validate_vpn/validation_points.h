#ifndef CONFIG_VALIDATE_VPN_VALIDATION_POINTS_H
#define CONFIG_VALIDATE_VPN_VALIDATION_POINTS_H

#include "config_validate_vpn/handlers.h"

/// The handler of the first validation point whose name is a prefix of `call_name`, or null when there is none.
validation_handler_t find_validation_handler(const char *call_name);

#endif
