#ifndef MAINTENANCE_COST_LATENCIES_H
#define MAINTENANCE_COST_LATENCIES_H

#include <array>
#include <chrono>
#include <filesystem>
#include <string_view>

#include "host/seam/host_session.h"

namespace cost {

/// How long each platform function takes on an element, from the call to the answer.
using Latencies = std::array<std::chrono::nanoseconds, host::seam_function_count>;

/// The same for every function, in microseconds: "50", "0.5". Throws std::invalid_argument for anything else.
Latencies latencies_from_number(std::string_view microseconds);

/// Reads a recording, of which it takes the mean of each function's durations, and of all calls for a function that was
/// not called; or a JSON object with microseconds by function, {"default": 50, "maapi_get_objects": 400.5}; "default"
/// is what the others take, 0 where it is missing. Throws element::FileError, or element::InputError for a file that
/// holds something else.
Latencies read_latencies(const std::filesystem::path &file);

}  // namespace cost

#endif
