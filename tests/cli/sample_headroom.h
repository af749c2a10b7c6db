#ifndef TESTS_CLI_SAMPLE_HEADROOM_H
#define TESTS_CLI_SAMPLE_HEADROOM_H

#include "report/headroom_report.h"

/// A report with every limit and every standing, for an element that accepts, with warnings, and one that rejects.
report::HeadroomReport sample_headroom();

#endif
