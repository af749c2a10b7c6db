#ifndef BENCH_XML_TEXT_H
#define BENCH_XML_TEXT_H

#include <string>

#include "element/datastore/tree.h"

namespace bench {

/// A tree of operator's nodes as the XML that an operator would hand in.
std::string xml_text(const element::Tree &tree);

}  // namespace bench

#endif
