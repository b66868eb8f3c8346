#pragma once

#include <span>
#include <string_view>

#include "core/Dispatch.h"

namespace pellora::test {

/// Something that a host is known not to do: the test that shows it, "Suite.Test" or "Suite.*", and why. That test is
/// skipped on the host with this reason.
struct HostLimit {
  std::string_view test;
  std::string_view reason;
};

/// The spreadsheet program that the tests work on. Everything else about it is said by its application object: a test
/// arranges and looks through `Book`, in the words of the spreadsheet object model, and so runs unchanged on every
/// host. One workbook is open at a time.
///
/// A program of tests is linked with one host: the library of one folder beside this file, which defines `TheHost`.
class SheetHost {
 public:
  virtual ~SheetHost() = default;
  /// For messages.
  virtual std::string_view Name() const = 0;
  /// Closes the workbook that is open and opens a new one: one empty sheet, "Sheet1", its first cell selected, no
  /// names, the screen updated. Answers the application object. What was handed out before is not used any more.
  virtual DispatchPtr Fresh() = 0;
  /// The application object of the open workbook.
  virtual DispatchPtr Application() = 0;
  virtual std::span<const HostLimit> Limits() const { return {}; }
};

/// The host of this program, made when it is first asked for.
SheetHost& TheHost();

}  // namespace pellora::test
