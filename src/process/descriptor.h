#ifndef PROCESS_DESCRIPTOR_H
#define PROCESS_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace process {

/// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor &operator=(Descriptor &&other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }

  bool is_open() const { return number_ >= 0; }
  int number() const { return number_; }
  void close() {
    if (is_open()) ::close(std::exchange(number_, -1));
  }

 private:
  int number_;
};

}  // namespace process

#endif
