#ifndef TESTS_ELEMENT_EDITED_BY_H
#define TESTS_ELEMENT_EDITED_BY_H

#include <string>

#include "element/edit/apply_edit.h"
#include "element/edit/edit_reader.h"
#include "element/input/input_error.h"
#include "print.h"

/// The lines of a configuration once the edits of a file of this name and content were applied to it.
inline Lines edited_by(const Lines &running, const std::string &text, const std::string &name) {
  element::Tree tree = tree_of(running);
  for (const element::Edit &edit : parse_edits(test_schema(), text, name).edits) tree = edited(tree, edit);
  return print(tree);
}

/// The error of it; empty without one.
inline std::string fault_of_edit(const Lines &running, const std::string &text, const std::string &name) {
  try {
    edited_by(running, text, name);
  } catch (const element::InputError &fault) {
    return fault.what();
  }
  return "";
}

/// A file of edits and the whole text of its error.
struct FaultyEdit {
  const char *name;
  std::string text;
  std::string message;
};

inline void PrintTo(const FaultyEdit &fault, std::ostream *out) { *out << fault.name; }

#endif
