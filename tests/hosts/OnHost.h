#pragma once

#include <gtest/gtest.h>

#include "tests/hosts/Book.h"
#include "tests/hosts/SheetHost.h"

namespace pellora::test {

/// A test on the program's host, with a new workbook. Skipped when the host says that it cannot do it; with
/// PELLORA_TRY_LIMITS in the environment nothing is skipped, which shows what a host can do by now.
class OnHost : public ::testing::Test {
 protected:
  OnHost() : book(TheHost().Fresh()) {}
  void SetUp() override;

  /// The open workbook.
  Book book;
};

}  // namespace pellora::test
