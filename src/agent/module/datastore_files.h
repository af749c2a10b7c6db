#ifndef AGENT_MODULE_DATASTORE_FILES_H
#define AGENT_MODULE_DATASTORE_FILES_H

#include <filesystem>

#include "agent/module/yuma.h"

namespace agent {

/// Writes a datastore as vpnval reads it, and as the agent reads it at its start. Throws std::runtime_error.
void write_datastore(val_value_t *root, const std::filesystem::path &file);

/// Writes a datastore and puts it in the place of the file, whole. Throws std::runtime_error.
void keep_datastore(val_value_t *root, const std::filesystem::path &file);

}  // namespace agent

#endif
