#include "rules/page_reader.h"

#include <gtest/gtest.h>

namespace {

using rules::Rule;
using rules::Severity;

const std::string kLimitPage = R"(---
order: 50
point: vpn_overflow_valp
severity: rejection
message: "VPNs: %d of %d allowed, as 'it' says"
counts: true
source: area/file.cc
examples: [first-example, second-example]
---

## What provokes it

More VPNs than allowed,
on two lines.

## Why the element refuses it

The card is full.

## What to do

Delete one.
)";

/// The page with one text in place of another that it holds once.
std::string page_with(const std::string &text, const std::string &replacement) {
  std::string page = kLimitPage;
  const std::size_t at = page.find(text);
  EXPECT_NE(at, std::string::npos) << text;
  EXPECT_EQ(page.find(text, at + 1), std::string::npos) << text;
  return page.replace(at, text.size(), replacement);
}

std::string error_of(const std::string &page) {
  try {
    rules::read_page("some-id", page);
  } catch (const rules::PageError &error) {
    return error.what();
  }
  return "";
}

TEST(PageReader, reads_every_field_and_part) {
  const Rule rule = rules::read_page("vpn-limit", kLimitPage);
  EXPECT_EQ(rule.id, "vpn-limit");
  EXPECT_EQ(rule.order, 50);
  EXPECT_EQ(rule.point, "vpn_overflow_valp");
  EXPECT_EQ(rule.severity, Severity::rejection);
  EXPECT_EQ(rule.message, "VPNs: %d of %d allowed, as 'it' says");
  EXPECT_TRUE(rule.counts);
  EXPECT_EQ(rule.source, "area/file.cc");
  EXPECT_EQ(rule.examples, (std::vector<std::string>{"first-example", "second-example"}));
  EXPECT_EQ(rule.provokes, "More VPNs than allowed, on two lines.");
  EXPECT_EQ(rule.why, "The card is full.");
  EXPECT_EQ(rule.remedy, "Delete one.");
}

TEST(PageReader, a_page_may_have_no_example_and_no_count) {
  EXPECT_EQ(rules::read_page("id", page_with("[first-example, second-example]", "[]")).examples,
            std::vector<std::string>());
  EXPECT_FALSE(rules::read_page("id", page_with("counts: true\n", "")).counts);
}

TEST(PageReader, what_a_fault_is_about_may_be_said) {
  const Rule plain = rules::read_page("id", kLimitPage);
  EXPECT_FALSE(plain.lists);
  EXPECT_EQ(plain.resource, rules::Resource::named);
  EXPECT_EQ(plain.scope, rules::Scope::neighbors);
  EXPECT_TRUE(rules::read_page("id", page_with("counts", "lists")).lists);
  EXPECT_EQ(rules::read_page("id", page_with("counts: true", "resource: vlan")).resource, rules::Resource::vlan);
  EXPECT_EQ(rules::read_page("id", page_with("counts: true", "resource: port")).resource, rules::Resource::port);
  EXPECT_EQ(rules::read_page("id", page_with("counts: true", "resource: pseudowire")).resource,
            rules::Resource::pseudowire);
  EXPECT_EQ(rules::read_page("id", page_with("counts: true", "scope: configuration")).scope,
            rules::Scope::configuration);
}

TEST(PageReader, a_warning_has_a_meaning_in_place_of_a_refusal) {
  std::string page = page_with("rejection", "warning");
  EXPECT_EQ(error_of(page), "docs/rules/some-id.md:16: expected '## What it means'");
  page.replace(page.find("Why the element refuses it"), 26, "What it means");
  EXPECT_EQ(rules::read_page("id", page).severity, Severity::warning);
}

TEST(PageReader, the_order_of_fields_and_blank_lines_do_not_matter) {
  const std::string page = page_with("---\norder: 50\npoint: vpn_overflow_valp\n",  //
                                     "---\npoint: vpn_overflow_valp\norder: 50\n");
  EXPECT_EQ(rules::read_page("id", page).order, 50);
  EXPECT_EQ(rules::read_page("id", page_with("\n\nDelete one.\n", "\nDelete one.\n\n\n")).remedy, "Delete one.");
  EXPECT_EQ(rules::read_page("id", page_with("Delete one.\n", "Delete one.")).remedy, "Delete one.");
}

struct Row {
  std::string text;
  std::string replacement;
  std::string error;
};

void expect_errors(const std::vector<Row> &rows) {
  for (const auto &[text, replacement, error] : rows) {
    EXPECT_EQ(error_of(page_with(text, replacement)), "docs/rules/some-id.md:" + error) << replacement;
  }
}

TEST(PageReader, a_malformed_header_is_an_error_with_its_line) {
  expect_errors({
      {"---\norder", "order", "1: expected '---'"},
      {"]\n---\n", "]\n", "9: expected 'FIELD: VALUE' or '---'"},
      {"order: 50\n", "", "8: expected a field 'order' before this line"},
      {"examples: [first-example, second-example]\n", "", "8: expected a field 'examples' before this line"},
      {"order: 50", "order:", "2: expected 'FIELD: VALUE' or '---'"},
      {"order: 50", "order: ", "2: expected 'FIELD: VALUE' or '---'"},
      {"counts: true", "order: 60", "6: expected a field that the header does not have yet"},
      {"counts: true", "looks: true", "6: expected no field of this name"},
  });
}

TEST(PageReader, a_field_without_the_form_of_its_values_is_an_error_with_its_line) {
  const std::string message = "\"VPNs: %d of %d allowed, as 'it' says\"";
  const std::string quoted = "5: expected a text in double quotes, without a double quote or a backslash in it";
  const std::string folders = "8: expected '[FOLDER, FOLDER]' or '[]'";
  expect_errors({
      {"order: 50", "order: 0", "2: expected a number above 0"},
      {"order: 50", "order: -50", "2: expected a number above 0"},
      {"order: 50", "order: 5x", "2: expected a number above 0"},
      {"order: 50", "order: 99999999999", "2: expected a number above 0"},
      {"vpn_overflow_valp", "a b", "3: expected a word without blanks or quotes"},
      {"rejection", "error", "4: expected 'rejection' or 'warning'"},
      {message, "VPNs", quoted},
      {message, "\"", quoted},
      {message, "\"\"", quoted},
      {message, "\"VPNs", quoted},
      {message, R"("VPNs "all"")", quoted},
      {message, R"("VPNs\n")", quoted},
      {"counts: true", "counts: false", "6: expected 'true', or no such field"},
      {"counts: true", "lists: all", "6: expected 'true', or no such field"},
      {"counts: true", "resource: vpn", "6: expected 'vlan', 'port' or 'pseudowire', or no such field"},
      {"counts: true", "scope: vpn", "6: expected 'configuration', or no such field"},
      {"area/file.cc", "[a, b]", "7: expected a word without blanks or quotes"},
      {"[first-example, second-example]", "first-example", folders},
      {"[first-example, second-example]", "[", folders},
      {"[first-example, second-example]", "[a,b]", folders},
      {"[first-example, second-example]", "[a b]", folders},
      {"[first-example, second-example]", "[, b]", folders},
  });
}

TEST(PageReader, a_missing_or_further_part_is_an_error_with_its_line) {
  expect_errors({
      {"## What provokes it\n", "", "12: expected '## What provokes it'"},
      {"## What to do", "## Remedy", "20: expected '## What to do'"},
      {"The card is full.\n", "", "19: expected a paragraph"},
      {"The card is full.\n", "The card is full.\n\nAnother paragraph.\n", "20: expected '## What to do'"},
      {"Delete one.\n", "", "22: expected a paragraph"},
      {"Delete one.\n", "Delete one.\n\n## Examples\n", "24: expected the end of the page"},
  });
  EXPECT_EQ(error_of(""), "docs/rules/some-id.md:1: expected '---'");
}

}  // namespace
