#include "cli/commands/profile_command.h"

#include <fmt/format.h>

#include <map>

#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "element/input/input_fault.h"
#include "element/input/input_text.h"
#include "element/profile/made_profile.h"
#include "report/escape/printable.h"

namespace cli {
namespace {

element::CardLimits card_of(const ProfileArguments &arguments) {
  if (arguments.cards.empty()) {
    return arguments.card.empty() ? element::CardLimits{} : element::read_profile(arguments.card).card;
  }
  if (arguments.card.empty()) throw UsageError("--cards without --card; expected the card's name");
  const std::map<std::string, element::CardLimits> cards = element::read_cards(arguments.cards);
  const auto found = cards.find(arguments.card);
  if (found != cards.end()) return found->second;
  std::vector<std::string> names;
  for (const auto &[name, limits] : cards) names.push_back(element::one_line(name));
  throw element::input_fault({arguments.cards}, fmt::format("no card \"{}\"", arguments.card),
                             fmt::format("one of {}", fmt::join(names, ", ")));
}

}  // namespace

ExitStatus make_profile(const ProfileArguments &arguments, const Environment &environment) {
  const element::CardLimits card = card_of(arguments);
  std::vector<element::InterfaceFile> files;
  for (const std::string &file : arguments.files) files.push_back({file, element::read_interface_data(file)});
  const element::MadeProfile made = element::make_profile(card, files);
  for (const std::string &note : made.notes) environment.err << report::printable(note) << '\n';
  const std::string text = element::write_profile(made.profile);
  write_whole(arguments.output, environment.out, text);
  return ExitStatus::accepted;
}

}  // namespace cli
