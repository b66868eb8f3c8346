#include "platform/libreoffice/services/SystemClock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace pellora::libreoffice {
namespace {

constexpr double kMinute = 1.0 / (24 * 60);
/// 1970-01-01.
constexpr double kFirstDayOfTheSystem = 25569;

// The zone of the process, put back in the end.
class SystemClockInAZone : public testing::Test {
 protected:
  SystemClockInAZone() {
    if (const char* zone = std::getenv("TZ")) m_zone = zone;
  }
  ~SystemClockInAZone() override {
    m_zone.empty() ? unsetenv("TZ") : setenv("TZ", m_zone.c_str(), 1);
    tzset();
  }
  static double DaysOfTheWorld() { return kFirstDayOfTheSystem + static_cast<double>(std::time(nullptr)) / 86400; }

 private:
  std::string m_zone;
};

TEST_F(SystemClockInAZone, TellsLocalTimeEast) {
  setenv("TZ", "EAST-5:30", 1);
  EXPECT_NEAR(SystemClock().Now(), DaysOfTheWorld() + 330 * kMinute, kMinute);
}

TEST_F(SystemClockInAZone, FollowsAZoneThatChanges) {
  setenv("TZ", "EAST-5:30", 1);
  SystemClock().Now();
  setenv("TZ", "WEST+8", 1);
  EXPECT_NEAR(SystemClock().Now(), DaysOfTheWorld() - 480 * kMinute, kMinute);
}

}  // namespace
}  // namespace pellora::libreoffice
