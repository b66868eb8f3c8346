#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "bench/TapeBench.h"

namespace pellora::bench {
namespace {

/// Into the file that PELLORA_BENCH_REPORT names: the program's own output is mixed with other things.
TEST(Bench, TickerTapeDialog) {
  const char* path = std::getenv("PELLORA_BENCH_REPORT");
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> report(path ? std::fopen(path, "w") : nullptr, &std::fclose);
  ASSERT_TRUE(report) << "PELLORA_BENCH_REPORT names no file that can be written";
  ReportTapeDialog(test::TheHost(), report.get());
}

}  // namespace
}  // namespace pellora::bench
