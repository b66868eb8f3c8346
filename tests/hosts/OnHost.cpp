#include "tests/hosts/OnHost.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace pellora::test {
namespace {

const HostLimit* LimitOf(const std::string& suite, const std::string& test) {
  for (const auto& limit : TheHost().Limits())
    if (limit.test == suite + "." + test || limit.test == suite + ".*") return &limit;
  return nullptr;
}

std::vector<HostLimit> LimitsOf(const testing::TestSuite& suite) {
  std::vector<HostLimit> found;
  for (const auto& limit : TheHost().Limits())
    if (limit.test.starts_with(std::string(suite.name()) + ".")) found.push_back(limit);
  return found;
}

bool Matches(const HostLimit& limit, const testing::TestSuite& suite) {
  const std::string name = suite.name();
  if (limit.test == name + ".*") return true;
  for (int i = 0; i < suite.total_test_count(); ++i)
    if (limit.test == name + "." + suite.GetTestInfo(i)->name()) return true;
  return false;
}

/// A limit of a test that was renamed would say nothing any more. One of a suite that another program has is not
/// judged here.
class LimitsNameTests : public testing::Environment {
 public:
  void TearDown() override {
    const auto& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i)
      for (const auto& limit : LimitsOf(*all.GetTestSuite(i)))
        EXPECT_TRUE(Matches(limit, *all.GetTestSuite(i))) << "no test is called " << limit.test;
  }
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new LimitsNameTests);

}  // namespace

void OnHost::SetUp() {
  const auto& test = *testing::UnitTest::GetInstance()->current_test_info();
  const auto* limit = LimitOf(test.test_suite_name(), test.name());
  if (limit && !std::getenv("PELLORA_TRY_LIMITS")) GTEST_SKIP() << TheHost().Name() << ": " << limit->reason;
}

}  // namespace pellora::test
