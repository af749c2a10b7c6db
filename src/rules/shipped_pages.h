#ifndef RULES_SHIPPED_PAGES_H
#define RULES_SHIPPED_PAGES_H

#include <string_view>
#include <vector>

namespace rules {

/// A page of docs/rules. Its texts live as long as the program.
struct ShippedPage {
  std::string_view id;    ///< the file's name without .md
  std::string_view text;  ///< the whole file
};

/// The page of every rule, by id. They are compiled into the program, so that it needs no file beside it.
const std::vector<ShippedPage> &shipped_pages();

}  // namespace rules

#endif
