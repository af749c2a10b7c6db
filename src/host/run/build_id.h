#ifndef HOST_RUN_BUILD_ID_H
#define HOST_RUN_BUILD_ID_H

#include <filesystem>
#include <string>

namespace host {

/// The GNU build id of an ELF file in hexadecimal, "none" where it carries none or cannot be read.
std::string build_id(const std::filesystem::path &file);

}  // namespace host

#endif
