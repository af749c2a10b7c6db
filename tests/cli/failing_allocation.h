#ifndef TESTS_CLI_FAILING_ALLOCATION_H
#define TESTS_CLI_FAILING_ALLOCATION_H

/// Allocations of this thread that succeed before one throws std::bad_alloc; below 0 none fails, as at first and again
/// after the one that failed. The test program's operator new counts them.
extern thread_local long allocations_left;

#endif
