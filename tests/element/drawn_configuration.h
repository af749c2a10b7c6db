#ifndef TESTS_ELEMENT_DRAWN_CONFIGURATION_H
#define TESTS_ELEMENT_DRAWN_CONFIGURATION_H

#include <rapidcheck.h>

#include "print.h"

/// Draws the lines of a configuration, for tree_of. Few names and numbers, so that two configurations share some nodes
/// and differ in others.
rc::Gen<Lines> drawn_configuration();

/// Draws a configuration that has one case of each choice, as the data model wants it.
element::Tree drawn_tree();

#endif
