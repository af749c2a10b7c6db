#ifndef CLI_OUTPUT_PAINT_H
#define CLI_OUTPUT_PAINT_H

#include <string>
#include <string_view>

namespace cli {

enum class Accent { message, rejected, warning, added, removed, changed };

/// Sets text off by colour, or not at all. No text depends on it: marks and words say the same.
class Paint {
 public:
  explicit Paint(bool in_colour) : in_colour_(in_colour) {}

  std::string operator()(Accent accent, std::string_view text) const;

 private:
  bool in_colour_;
};

}  // namespace cli

#endif
