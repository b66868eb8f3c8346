#include <sstream>

#include "Desk.h"

namespace pellora::test {
namespace {

/// Everything a workbook shows, as one text.
std::string Picture(workbook::Host& host) {
  std::ostringstream out;
  auto& document = host.document();
  for (const auto& sheet : document.sheets) {
    out << "[" << sheet->name << "]\n";
    for (const auto& [place, cell] : sheet->cells) {
      out << place.row << "," << place.column << "=" << cell.formula << "|";
      if (cell.value.Is(Variant::Type::String)) out << cell.value.String();
      for (const auto& line : cell.format.borders)
        out << " " << line.style << "/" << line.weight << "/" << line.colorIndex;
      out << " " << cell.format.interior << "\n";
    }
    for (const auto& [column, width] : sheet->columnWidths) out << column << ":" << width << "\n";
  }
  out << "active " << document.sheets[document.active]->name << "\n";
  out << "updating " << host.Application()->Invoke("ScreenUpdating", CallKind::Get, {}).Boolean();
  return out.str();
}

/// A load and an insert while one call to the spreadsheet fails.
class Failing : public Desk {
 protected:
  struct Outcome {
    std::string picture;
    std::uint64_t calls = 0;
    /// False when the failure was an answer to a routine that asks quietly.
    bool reported = false;
  };

  /// Fails the `nth` call (0: none), answered by `button`; once only, or for good.
  Outcome Run(std::uint64_t nth, std::string_view button, bool once = true) {
    workbook::Host other;
    WorkbookBuilder(other).Instruments(3).Tapes(2);
    mGlobal::ErrorHandler->CallStackClear();
    application = other.Application();
    NewDialog();
    bool failed = false;
    other.ResetCalls();
    other.fail = [&](std::string_view, CallKind, std::uint64_t call) {
      if (nth == 0 || call < nth || (once && failed)) return 0;
      failed = true;
      return 1004;
    };
    platform.user().AnswerErrorDialogs(button);
    const auto reports = platform.user().ErrorTexts().size();
    dialog->Load();
    dialog->txtAddress.Text("Sheet1!H30:I39");
    dialog->AddSymbolToSheet();
    other.fail = {};
    application = host.Application();
    return {Picture(other), other.CallCount(), platform.user().ErrorTexts().size() > reports};
  }
};

TEST_F(Failing, RetryingAnyReportedCallOnceEndsWithTheSameWorkbookAsNoFailure) {
  const auto smooth = Run(0, "btnRetry");
  int reports = 0;
  for (std::uint64_t nth = 1; nth <= smooth.calls; ++nth) {
    const auto retried = Run(nth, "btnRetry");
    if (!retried.reported) continue;
    ++reports;
    EXPECT_TRUE(retried.picture == smooth.picture) << "call " << nth << "\n" << retried.picture;
  }
  EXPECT_GT(reports, 50);
}

TEST_F(Failing, IgnoringAnyCallDoesNotLeaveTheScreenFrozenUnlessSwitchingItBackWasTheCallIgnored) {
  const auto calls = Run(0, "btnIgnore").calls;
  int frozen = 0;
  for (std::uint64_t nth = 1; nth <= calls; ++nth)
    if (Run(nth, "btnIgnore").picture.ends_with("updating 0")) ++frozen;
  EXPECT_EQ(frozen, 2) << "the last calls of loading and of inserting";
}

TEST_F(Failing, AbortingAtAnyCallLeavesNoCrashAndNoDialogBehind) {
  const auto calls = Run(0, "btnAbort").calls;
  for (std::uint64_t nth = 1; nth <= calls; ++nth) Run(nth, "btnAbort");
  EXPECT_FALSE(dialog->Shown());
}

TEST_F(Failing, ASpreadsheetThatFailsForGoodIsSurvivedWithAbortAndWithIgnore) {
  const auto calls = Run(0, "btnAbort").calls;
  for (std::uint64_t nth = 1; nth <= calls; nth += 7) {
    Run(nth, "btnAbort", false);
    Run(nth, "btnIgnore", false);
  }
  EXPECT_FALSE(dialog->Shown());
}

}  // namespace
}  // namespace pellora::test
