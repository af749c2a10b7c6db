#include "report/text/text_style.h"

#include <fmt/format.h>

namespace report {
namespace {

/// What a terminal is told, as ECMA-48 numbers it.
std::string_view rendition(Accent accent) {
  switch (accent) {
    case Accent::message:
      return "1";
    case Accent::rejected:
      return "1;31";
    case Accent::warning:
      return "1;33";
    case Accent::added:
      return "32";
    case Accent::removed:
      return "31";
    case Accent::changed:
      return "33";
  }
  return "0";
}

}  // namespace

std::string TextStyle::operator()(Accent accent, std::string_view text) const {
  if (!in_colour_) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", rendition(accent), text);
}

}  // namespace report
