// growth_commit LIBRARY KIND SIZE...: asks the library once about a commit of this kind at each size, and prints a line
// "SIZE FUNCTION CALLS" for every platform function that it called. A run under callgrind that collects inside
// `validate` sees nothing else.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "bench/asked_point.h"
#include "bench/point_commits.h"

namespace {

void print_calls(std::size_t size, const host::CallStatistics &statistics) {
  for (std::size_t i = 0; i < host::seam_function_count; ++i) {
    if (statistics.calls[i] == 0) continue;
    const std::string function(name(static_cast<host::SeamFunction>(i)));
    std::printf("%zu %s %llu\n", size, function.c_str(), static_cast<unsigned long long>(statistics.calls[i]));
  }
}

void ask(const char *library, const element::Schema &schema, bench::PointCommitKind kind, std::size_t size) {
  const bench::PointCommit commit = make_point_commit(schema, kind, size);
  host::HostSession session(commit.profile);
  const host::Plugin plugin(library);
  bench::AskedPoint(commit, plugin, session).validate();
  print_calls(size, session.statistics);
}

}  // namespace

int main(int argc, char **argv) {
  const auto kind = argc < 4 ? std::nullopt : bench::kind_named(argv[2]);
  if (!kind) {
    std::fputs("usage: growth_commit LIBRARY KIND SIZE...\n", stderr);
    return 64;
  }
  try {
    const element::Schema schema;
    for (int i = 3; i < argc; ++i) ask(argv[1], schema, *kind, std::strtoul(argv[i], nullptr, 10));
  } catch (const std::exception &error) {
    std::fprintf(stderr, "growth_commit: %s\n", error.what());
    return 1;
  }
  return 0;
}
