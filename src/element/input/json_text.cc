#include "element/input/json_text.h"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/json_reader.h"

namespace element {
namespace {

class NameChecker : public JsonEvents {
 public:
  explicit NameChecker(const std::string &origin) : origin_(origin) {}

  void name(std::string_view name, std::size_t line) override {
    const auto [first, is_new] = open_.back().try_emplace(std::string(name), line);
    if (is_new) return;
    throw InputError(fmt::format("{}:{}: member {} is given twice in one object, first on line {}; expected it once",
                                 origin_, line, one_line(name), first->second));
  }
  void scalar(const JsonScalar &) override {}
  void start_object(std::size_t) override { open_.emplace_back(); }
  void end_object() override { open_.pop_back(); }
  void start_array(std::size_t) override { open_.emplace_back(); }
  void end_array() override { open_.pop_back(); }

 private:
  const std::string &origin_;
  std::vector<std::map<std::string, std::size_t>> open_;  ///< lines of the names in each object; arrays have none
};

}  // namespace

void require_json(std::string_view text, const std::string &origin) {
  InputPieces input(text, origin);
  NameChecker checker(origin);
  read_json(input, checker);
}

}  // namespace element
