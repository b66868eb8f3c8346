#include <gtest/gtest.h>

#include <com/sun/star/lang/XMultiComponentFactory.hpp>

#include "tests/libreoffice/runner/Runner.h"

namespace pellora::test {
namespace {

TEST(Office, HasTheServicesOfItsOwnProcess) {
  ASSERT_TRUE(Office().is());
  const auto desktop = Office()->getServiceManager()->createInstanceWithContext("com.sun.star.frame.Desktop", Office());
  EXPECT_TRUE(desktop.is());
}

}  // namespace
}  // namespace pellora::test
