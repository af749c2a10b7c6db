#include "element/output/configuration_writer.h"

#include <libyang/libyang.h>

#include <memory>
#include <new>

#include "element/output/data_tree.h"

namespace element {
namespace {

constexpr const char *kEmptyXml = "<config xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>\n";

struct FreePrinted {
  void operator()(char *text) const { free(text); }
};

}  // namespace

std::string write_configuration(const Tree &tree, InputFormat format) {
  const char *empty = format == InputFormat::xml ? kEmptyXml : "{}\n";
  const DataTree data = data_tree(tree);
  if (!data) return empty;
  char *text = nullptr;
  const LYD_FORMAT printed = format == InputFormat::xml ? LYD_XML : LYD_JSON;
  if (lyd_print_mem(&text, data.get(), printed, LYD_PRINT_WITHSIBLINGS) != LY_SUCCESS) throw std::bad_alloc();
  const std::unique_ptr<char, FreePrinted> owner(text);
  // Nothing is printed of containers that hold nothing.
  return text == nullptr ? empty : text;
}

}  // namespace element
