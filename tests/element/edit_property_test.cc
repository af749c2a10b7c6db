#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "drawn_configuration.h"
#include "element/datastore/difference.h"
#include "element/edit/apply_edit.h"
#include "element/edit/edit_of_difference.h"
#include "print.h"

namespace {

using element::EditOperation;

RC_GTEST_PROP(EditProperty, made_from_a_difference_and_applied_it_gives_the_new_configuration, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree after = drawn_tree();
  const element::Edit edit = edit_of(difference(before, after));
  RC_ASSERT(print(edited(before, edit)) == print(after));
}

void set_operation(std::vector<element::EditNode> &nodes, EditOperation from, EditOperation to) {
  for (element::EditNode &node : nodes) {
    if (node.operation == from) node.operation = to;
    set_operation(node.children, from, to);
  }
}

RC_GTEST_PROP(EditProperty, merge_and_remove_do_it_again_without_an_error, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree after = drawn_tree();
  element::Edit edit = edit_of(difference(before, after));
  set_operation(edit.nodes, EditOperation::create, EditOperation::merge);
  set_operation(edit.nodes, EditOperation::delete_existing, EditOperation::remove);
  const element::Tree once = edited(before, edit);
  RC_ASSERT(print(once) == print(after));
  RC_ASSERT(print(edited(once, edit)) == print(after));
}

RC_GTEST_PROP(EditProperty, a_replacement_of_everything_needs_no_running_configuration, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree after = drawn_tree();
  element::Edit edit = edit_of(difference(element::Tree(after.schema()), after));
  edit.replaces_everything = true;
  RC_ASSERT(print(edited(before, edit)) == print(after));
}

}  // namespace
