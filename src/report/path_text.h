#ifndef REPORT_PATH_TEXT_H
#define REPORT_PATH_TEXT_H

#include <string_view>
#include <vector>

namespace report {

/// The steps of a path as it is printed, with their keys, without the slashes: "vpn{east}" of "/l2vpn/vpn{east}". A
/// slash within keys parts nothing.
std::vector<std::string_view> path_steps(std::string_view path);

/// The path without the steps that it shares with the other; of one that is above the other, the last step.
std::string_view path_beside(std::string_view path, std::string_view other);

}  // namespace report

#endif
