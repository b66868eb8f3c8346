// What stands in the library for the compiler's own threads, by way of a small library that has it and is used by
// several threads at once.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "ProcessCounts.h"

namespace pellora::windows::test {
namespace {

constexpr int kThreads = 8;

// Not by this program's own condition variables, which are of the library of threads that is left out there.
template <class Condition>
void WaitUntil(Condition condition) {
  while (!condition()) Sleep(1);
}

class RunTimeThreads : public testing::Test {
 protected:
  RunTimeThreads() { Load(); }
  ~RunTimeThreads() override { Unload(); }
  void SetUp() override { ASSERT_NE(m_module, nullptr) << "cannot load threads.dll, error " << GetLastError(); }

  void Load() {
    wchar_t self[1024] = L"";
    GetModuleFileNameW(nullptr, self, 1024);
    m_module = LoadLibraryW((std::filesystem::path(self).parent_path() / L"threads.dll").c_str());
  }
  void Unload() {
    if (m_module) FreeLibrary(std::exchange(m_module, nullptr));
  }

  template <class... Arguments>
  int Call(const char* door, Arguments... arguments) {
    using Function = int(Arguments...);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module, door)))(arguments...);
  }

  // What each of several threads is answered, all of which ask at the same time.
  template <class... Arguments>
  std::vector<int> CallAtOnce(const char* door, Arguments... arguments) {
    std::vector<int> answers(kThreads);
    std::atomic<int> came{0};
    std::vector<std::jthread> threads;
    for (int& answer : answers)
      threads.emplace_back([&] {
        ++came;
        WaitUntil([&] { return came == kThreads; });
        answer = Call(door, arguments...);
      });
    threads.clear();
    return answers;
  }

  const std::vector<int> m_onesOnly = std::vector<int>(kThreads, 1);

 private:
  HMODULE m_module = nullptr;
};

TEST_F(RunTimeThreads, EachThreadCatchesItsOwnExceptions) {
  EXPECT_EQ(CallAtOnce("CatchOnes", 200), std::vector<int>(kThreads, 200));
}

TEST_F(RunTimeThreads, AVariableOfAThreadsOwnBeginsAnewInEachThread) {
  Call("CountFromForty");
  EXPECT_EQ(CallAtOnce("CountFromZero"), m_onesOnly);
  EXPECT_EQ(CallAtOnce("CountFromForty"), std::vector<int>(kThreads, 41));
  EXPECT_EQ(Call("CountFromForty"), 42);
}

TEST_F(RunTimeThreads, AStaticVariableIsMadeOnceAndFoundMadeByAll) { EXPECT_EQ(CallAtOnce("MakeStatic"), m_onesOnly); }

TEST_F(RunTimeThreads, AStaticVariableThatCouldNotBeMadeIsMadeByTheNextThread) {
  const auto answers = CallAtOnce("MakeAtSecondTry");
  EXPECT_EQ(std::count(answers.begin(), answers.end(), 0), 1);
}

TEST_F(RunTimeThreads, WhatIsCalledOnceIsOverForAll) { EXPECT_EQ(CallAtOnce("CallOnce"), m_onesOnly); }

TEST_F(RunTimeThreads, ALockLetsInOneThreadAtATime) {
  CallAtOnce("CountUnderLock", 10'000);
  EXPECT_EQ(Call("CountUnderLock", 0), kThreads * 10'000);
}

// As a host's other threads do: they live on while the library comes and goes.
TEST_F(RunTimeThreads, ThreadsThatOutliveTheLibraryKeepNothingOfIt) {
  constexpr int kRounds = 25, kWarmUp = 5;
  Unload();
  std::atomic<int> loads{0}, uses{0}, wrong{0};
  std::vector<std::jthread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) {
        WaitUntil([&] { return loads > round; });
        wrong += Call("CatchOnes", 2) != 2 || Call("CountFromZero") != 1 || Call("CountFromForty") != 41;
        ++uses;
      }
    });
  Counts before;
  for (int round = 0; round < kRounds; ++round) {
    Load();
    ++loads;
    WaitUntil([&] { return uses == (round + 1) * kThreads; });
    Unload();
    if (round == kWarmUp) before = CountAll();
  }
  const Counts after = CountAll();
  EXPECT_EQ(wrong, 0);
  ASSERT_NE(before.handles, 0u);
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.bytes, before.bytes + 64 * 1024);
}

}  // namespace
}  // namespace pellora::windows::test
