#include "bench/peer/yang_rules.h"

#include <libyang/libyang.h>

#include <stdexcept>

#include "bench/cpu_time.h"

namespace bench {
namespace {

[[noreturn]] void fail(const ly_ctx *context) {
  const char *message = context == nullptr ? nullptr : ly_errmsg(context);
  throw std::runtime_error(std::string("libyang: ") + (message == nullptr ? "no reason given" : message));
}

ly_ctx *new_context() {
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx *context = nullptr;
  if (ly_ctx_new(nullptr, LY_CTX_NO_YANGLIBRARY, &context) != LY_SUCCESS) fail(nullptr);
  return context;
}

/// A data tree, parsed and not yet validated.
class Data {
 public:
  Data(ly_ctx *context, const std::string &xml) : context_(context) {
    const std::uint32_t options = LYD_PARSE_ONLY | LYD_PARSE_STRICT;
    if (lyd_parse_data_mem(context, xml.c_str(), LYD_XML, options, 0, &tree_) != LY_SUCCESS) fail(context);
  }
  ~Data() { lyd_free_all(tree_); }
  Data(const Data &) = delete;
  Data &operator=(const Data &) = delete;

  bool validate() { return lyd_validate_all(&tree_, context_, LYD_VALIDATE_PRESENT, nullptr) == LY_SUCCESS; }

 private:
  ly_ctx *context_;
  lyd_node *tree_ = nullptr;
};

}  // namespace

YangRules::YangRules() : context_(new_context(), ly_ctx_destroy) {
  if (lys_parse_path(context_.get(), PEER_RULES_FILE, LYS_IN_YANG, nullptr) != LY_SUCCESS) fail(context_.get());
}

double YangRules::seconds_to_validate(const std::string &xml) const {
  Data data(context_.get(), xml);
  bool valid = false;
  const double seconds = cpu_seconds_of([&] { valid = data.validate(); });
  if (!valid) fail(context_.get());
  return seconds;
}

bool YangRules::is_valid(const std::string &xml) const { return Data(context_.get(), xml).validate(); }

}  // namespace bench
