#ifndef REPORT_TEXT_TEXT_STYLE_H
#define REPORT_TEXT_TEXT_STYLE_H

#include <string>
#include <string_view>

namespace report {

enum class Accent { message, rejected, warning, added, removed, changed };

/// Sets text off by colour, or not at all. No text depends on it: marks and words say the same.
class TextStyle {
 public:
  explicit TextStyle(bool in_colour) : in_colour_(in_colour) {}

  std::string operator()(Accent accent, std::string_view text) const;

 private:
  bool in_colour_;
};

}  // namespace report

#endif
