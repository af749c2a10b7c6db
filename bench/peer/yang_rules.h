#ifndef BENCH_PEER_YANG_RULES_H
#define BENCH_PEER_YANG_RULES_H

#include <memory>
#include <string>

struct ly_ctx;

namespace bench {

/// The module peer-rules in libyang, asked about data.
class YangRules {
 public:
  YangRules();

  /// CPU seconds that libyang needs to validate the XML, which is parsed beforehand. Throws when it is not valid.
  double seconds_to_validate(const std::string &xml) const;

  /// Whether libyang takes the XML as valid.
  bool is_valid(const std::string &xml) const;

 private:
  std::unique_ptr<ly_ctx, void (*)(ly_ctx *)> context_;
};

}  // namespace bench

#endif
