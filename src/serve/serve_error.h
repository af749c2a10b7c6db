#ifndef SERVE_SERVE_ERROR_H
#define SERVE_SERVE_ERROR_H

#include <stdexcept>

namespace serve {

/// An element that cannot be served; what() says why and what was expected.
class ServeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace serve

#endif
