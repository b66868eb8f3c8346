#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <functional>

#include "tests/libreoffice/uno/CalcDocument.h"

namespace pellora::test {
namespace {

constexpr int kCalls = 1000;

// Microseconds of this thread's own time for one call, so that what else the machine does counts little.
double CostOf(const std::function<void()>& call) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
  };
  call();
  const double start = now();
  for (int i = 0; i < kCalls; ++i) call();
  return (now() - start) / kCalls;
}

TEST(CostOfCalls, StaysSmall) {
  const CalcDocument document;
  const auto excel = document.Excel();
  const auto cell = excel.Range("A1");
  const std::pair<const char*, std::function<void()>> calls[] = {
      {"Range(a).Value", [&] { excel.Range("A1").Value(); }},
      {"Value", [&] { cell.Value(); }},
      {"Value =", [&] { cell.Value("x"); }},
      {"Cells(i, j)", [&] { cell.Cells(1, 1); }},
      {"Row", [&] { cell.Row(); }},
      {"Address", [&] { cell.Address(); }},
  };
  for (const auto& [name, call] : calls) {
    const double cost = CostOf(call);
    std::printf("%s: %.1f microseconds\n", name, cost);
    EXPECT_LT(cost, 1000) << name;
  }
}

}  // namespace
}  // namespace pellora::test
