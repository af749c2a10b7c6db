// Prints the edit that leads from one configuration to another one: write_edit FROM TO. As NETCONF's <config>.

#include <exception>
#include <iostream>

#include "element/datastore/difference.h"
#include "element/edit/edit_of_difference.h"
#include "element/input/configuration.h"
#include "tests/element/edit_writer.h"

int main(int argc, char **argv) {
  if (argc != 3) return 64;
  try {
    const element::Schema schema;
    const element::Tree from = element::read_configuration(schema, argv[1]);
    const element::Tree to = element::read_configuration(schema, argv[2]);
    std::cout << element::write_edit(schema, element::edit_of(element::difference(from, to)));
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return 65;
  }
  return 0;
}
