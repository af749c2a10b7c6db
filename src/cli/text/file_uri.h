#ifndef CLI_TEXT_FILE_URI_H
#define CLI_TEXT_FILE_URI_H

#include <string>

namespace cli {

/// A file's name as a URI reference: "file:///..." for an absolute name, relative for a relative one.
std::string file_uri(const std::string &file);

}  // namespace cli

#endif
