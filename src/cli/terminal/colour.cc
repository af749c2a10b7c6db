#include "cli/terminal/colour.h"

namespace cli {

bool wants_colour(const CheckArguments &arguments, const Environment &environment) {
  if (arguments.colour != Colour::on_a_terminal) return arguments.colour == Colour::always;
  return arguments.format == Format::text && environment.out_is_terminal && !environment.no_colour;
}

}  // namespace cli
