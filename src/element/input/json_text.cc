#include "element/input/json_text.h"

#include "element/input/json_reader.h"
#include "element/input/member_names.h"

namespace element {
namespace {

class NameChecker : public JsonEvents {
 public:
  explicit NameChecker(const std::string &origin) : origin_(origin) {}

  void name(std::string_view name, std::size_t line) override { names_.add(name, line, origin_); }
  void scalar(const JsonScalar &) override {}
  void start_object(std::size_t) override { names_.open(); }
  void end_object() override { names_.close(); }
  void start_array(std::size_t) override { names_.open(); }
  void end_array() override { names_.close(); }

 private:
  const std::string &origin_;
  MemberNames names_;
};

}  // namespace

void require_json(std::string_view text, const std::string &origin) {
  InputPieces input(text, origin);
  NameChecker checker(origin);
  read_json(input, checker);
}

}  // namespace element
