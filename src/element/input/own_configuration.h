#ifndef ELEMENT_INPUT_OWN_CONFIGURATION_H
#define ELEMENT_INPUT_OWN_CONFIGURATION_H

#include <cstddef>
#include <string>

#include "element/input/configuration_format.h"
#include "element/input/input_pieces.h"
#include "element/input/passed_over.h"
#include "element/input/source_tree.h"

namespace element {

/// The element's own part of a configuration file, for libyang, which checks its values.
struct OwnConfiguration {
  /// Begins each node on a line of its own: node n of `tree` on line n + 1.
  std::string text;
  InputFormat format = InputFormat::xml;
  SourceTree tree;
  PassedOver passed_over;
};

/// What a file may hold beside the element's own nodes.
struct ReadOptions {
  bool refuse_foreign = false;                 ///< nodes of other modules are an error, not passed over
  std::size_t largest = std::size_t{1} << 30;  ///< how many bytes the element's own nodes may take
};

/// Throws InputError, which names `origin`, where the element's own nodes take more bytes than the options allow.
void require_own_size(std::size_t size, const ReadOptions &options, const std::string &origin);

/// Reads an input once and keeps the element's own nodes. Envelopes of NETCONF and RESTCONF are taken off; nodes of
/// other modules with all that they hold, annotations, comments and blanks are passed over. Memory grows with what is
/// kept alone. Throws InputError, as OwnNodes and the readers of both formats do; FileError for a file that cannot be
/// read.
OwnConfiguration read_own_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options);

}  // namespace element

#endif
