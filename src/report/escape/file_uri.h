#ifndef REPORT_ESCAPE_FILE_URI_H
#define REPORT_ESCAPE_FILE_URI_H

#include <string>

namespace report {

/// A file's name as a URI reference: "file:///..." for an absolute name, relative for a relative one.
std::string file_uri(const std::string &file);

}  // namespace report

#endif
