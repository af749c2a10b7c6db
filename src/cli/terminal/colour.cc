#include "cli/terminal/colour.h"

namespace cli {

bool wants_colour(Colour colour, const Environment &environment) {
  if (colour != Colour::on_a_terminal) return colour == Colour::always;
  return environment.out_is_terminal && !environment.no_colour;
}

}  // namespace cli
