#include <gtest/gtest.h>

#include <sstream>

#include "report/json/headroom_json.h"
#include "report/text/headroom_text.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_headroom.h"

namespace {

std::string text_of(const report::HeadroomReport &report) {
  std::ostringstream out;
  write_headroom_text(out, report);
  return out.str();
}

std::string json_of(const report::HeadroomReport &report) {
  std::ostringstream out;
  write_headroom_json(out, report);
  return out.str();
}

TEST(HeadroomText, is_a_table_with_a_column_for_each_element) {
  EXPECT_EQ(text_of(sample_headroom()), R"([1] roomy.json: accepted with warnings
    vpn_access_valp: a message\nof another library
[2] tight\x1b.json: rejected
    vpn_overflow_valp: Maximum number of VPNs has been exceeded. Attempt to configure 5 of 4 allowed
    2 questions of the library could not be read because of the name `a b`: rule vpn-limit may not have looked at it

left of each limit                                      used  [1]          [2]
VPNs                                                       5  16384+ (1)   -1 of 4
pseudowires                                                ?  3 (2)        3 (2)
access interfaces of a VPLS VPN
  vpls-group a vpn b                                       1  3 of 4       3 of 4
  vpls-group a vpn longer                                  2  2 of 4       2 of 4
selective encapsulation: VLANs and ranges                  3  5 of 8       5 of 8
selective encapsulation: ranges                            0  5 of 64 (3)  ? of 64 (2)
selective encapsulation: ranges of an access interface
  ge-1/1                                                   ?  0 (4)        0 (4)
bridge MTU of a VPLS VPN with a service port, in bytes
  vpls-group a vpn b                                    1500  500 of 2000  500 of 2000

(1) no limit met: the search went no further
(2) stopped by vpn_access_valp: a message\nof another library
(3) stopped by vpn_access_valp: Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure 9 of 8 allowed
(4) no VLANs of the interface are free for another range

decided by /lib/library.so, build id 0123abcd
)");
}

TEST(HeadroomText, of_one_element_has_one_column) {
  report::HeadroomReport report = sample_headroom();
  report.elements.resize(1);
  report.elements[0].measurement.usages.resize(1);
  report.elements[0].measurement.answers.clear();
  EXPECT_EQ(text_of(report), R"([1] roomy.json: accepted with warnings

left of each limit  used  [1]
VPNs                   5  16384+ (1)

(1) no limit met: the search went no further

decided by /lib/library.so, build id 0123abcd
)");
}

TEST(HeadroomJson, fits_its_schema) {
  const CommitFolder folder;
  folder.write("both", json_of(sample_headroom()));
  report::HeadroomReport cut = sample_headroom();
  cut.elements[0].measurement.answers[0].message = "cut within a character: \xc3";
  cut.elements.pop_back();
  folder.write("cut", json_of(cut));
  const ProcessResult result = run_reader(
      "fits_schema.py", SOURCE_DIR "/docs/headroom.schema.json " + folder.file("both") + " " + folder.file("cut"));
  EXPECT_EQ(result.output, "2 documents fit\n");
}

TEST(HeadroomJson, reads_back_what_it_writes) {
  const report::HeadroomReport report = sample_headroom();
  const report::HeadroomReport read = report::read_headroom_json(json_of(report));
  EXPECT_EQ(json_of(read), json_of(report));
  EXPECT_EQ(text_of(read), text_of(report));
}

TEST(HeadroomJson, reads_nothing_else) {
  std::string other = json_of(sample_headroom());
  other.replace(other.find("\"exceeded\""), 10, "\"no-such\"");
  EXPECT_THROW(report::read_headroom_json(other), std::exception);
  EXPECT_THROW(report::read_headroom_json("{}"), std::exception);
  EXPECT_THROW(report::read_headroom_json(""), std::exception);
}

}  // namespace
