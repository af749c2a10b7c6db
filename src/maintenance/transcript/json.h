#ifndef MAINTENANCE_TRANSCRIPT_JSON_H
#define MAINTENANCE_TRANSCRIPT_JSON_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "maintenance/recording/recording.h"

namespace transcript {

/// A document that is no recording; what() says where and what was expected.
class JsonError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The whole recording as a JSON document, with a line end, in ASCII. Texts that are no UTF-8 are given as hexadecimal
/// digits.
std::string to_json(const recording::Recording &recording);

/// The recording that to_json() made the document of. Throws JsonError.
recording::Recording from_json(std::string_view document);

}  // namespace transcript

#endif
