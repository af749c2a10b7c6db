#ifndef MAINTENANCE_TRANSCRIPT_TEXT_H
#define MAINTENANCE_TRANSCRIPT_TEXT_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "maintenance/recording/recording.h"

namespace transcript {

/// The name of a node of the data model by its tag; empty where it is not known. A path then shows the number.
using NodeName = std::function<std::string(std::uint32_t tag)>;

/// A call as it stands in C, its answer and what it wrote: `maapi_exists(3, 7, "/x{%s}", "a") = 1`. One line.
std::string question_text(const recording::Call &call);
std::string answer_text(const recording::Call &call);

/// What `validate` returned, in words; none is an exception.
std::string verdict_text(const std::optional<std::int64_t> &verdict);

/// "/mpls/vpn{a}", the first element first.
std::string path_text(const recording::KeyPath &path, const NodeName &node_name);

/// The whole recording for a reader: header, numbered calls with their durations, trailer. Bytes that are no printable
/// ASCII are shown as \xNN.
std::string recording_text(const recording::Recording &recording, const NodeName &node_name);

}  // namespace transcript

#endif
