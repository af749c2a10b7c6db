#include "report/escape/file_uri.h"

#include <fmt/format.h>

#include <filesystem>
#include <string_view>

namespace report {
namespace {

/// What a URI's path may hold as it is. A colon is none of it: the first part of a relative reference has no scheme.
constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=@/";

}  // namespace

std::string file_uri(const std::string &file) {
  std::string uri = file.starts_with('/') ? "file://" : "";
  for (const char c : std::filesystem::path(file).lexically_normal().string()) {
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return uri;
}

}  // namespace report
