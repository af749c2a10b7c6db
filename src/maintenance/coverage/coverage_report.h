#ifndef MAINTENANCE_COVERAGE_COVERAGE_REPORT_H
#define MAINTENANCE_COVERAGE_COVERAGE_REPORT_H

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "maintenance/coverage/cell.h"

namespace coverage {

/// The commits of the corpus in which a cell was observed.
struct Filled {
  std::size_t commits = 0;
  std::string first;  ///< name of the first of them
};

/// A drawn commit that fills a cell which the corpus leaves empty.
struct FillingCommit {
  Cell cell;
  std::string name;  ///< "seed 17", and the folder where it was written
};

/// What a corpus shows of the library.
struct CoverageReport {
  std::string plugin_file;
  std::string build_id;
  std::size_t commits = 0;
  std::map<Cell, Filled> filled;
  Cells expected;
  std::vector<FillingCommit> found;  ///< commits that are no part of the corpus
  std::size_t drawn = 0;             ///< so many were drawn in search of them

  void add(const std::string &name, const Cells &cells);

  /// The expected cells that nothing in the corpus fills.
  Cells empty() const;
};

void write_text(std::ostream &out, const CoverageReport &report);

/// Lines for a file of cells.
void write_cells(std::ostream &out, const CoverageReport &report);

/// One JSON document; docs/coverage.schema.json describes it.
void write_json(std::ostream &out, const CoverageReport &report);

/// A page that loads nothing.
void write_page(std::ostream &out, const CoverageReport &report);

}  // namespace coverage

#endif
