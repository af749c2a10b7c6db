#ifndef REPORT_JSON_JSON_TEXT_H
#define REPORT_JSON_JSON_TEXT_H

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace report {

/// A JSON value as text, in one line or indented. Bytes that are no UTF-8, as where the library has cut a long name,
/// become U+FFFD; what would steer a terminal, as marks that turn the direction of text, is written as an escape, which
/// readers take for the same character.
std::string json_text(const nlohmann::ordered_json &json, int indent = -1);

}  // namespace report

#endif
