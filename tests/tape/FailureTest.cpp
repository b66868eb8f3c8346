#include <algorithm>
#include <cstdlib>

#include "Desk.h"

namespace pellora::test {
namespace {

/// A load and an insert while one call to the spreadsheet fails. With PELLORA_FAIL_EVERY=n in the environment only
/// every n-th call fails in turn, for a host that is slow, and the results say so; those that switch the screen's
/// updating do in any case.
class Failing : public Desk {
 protected:
  struct Outcome {
    /// Of what was retried only; others are not compared.
    std::string picture;
    /// False when the failure was an answer to a routine that asks quietly.
    bool reported = false;
    bool updating = true;
  };

  static std::uint64_t Every() {
    const char* every = std::getenv("PELLORA_FAIL_EVERY");
    return every ? std::max(1ul, std::strtoul(every, nullptr, 10)) : 1;
  }

  /// The calls of a smooth run that shall fail in turn, by their numbers from 1.
  std::vector<std::uint64_t> walk;

  /// As `walk`, out of the calls just made.
  std::vector<std::uint64_t> Walk() const {
    const auto made = witness.Calls();
    std::vector<std::uint64_t> numbers;
    for (std::uint64_t nth = 1; nth <= made.size(); ++nth)
      if (nth % Every() == 0 || made[nth - 1].find("ScreenUpdating =") != std::string::npos) numbers.push_back(nth);
    RecordProperty("failed", std::to_string(numbers.size()) + " of " + std::to_string(made.size()) + " calls");
    return numbers;
  }

  /// Fails the `nth` call (0: none), answered by `button`; once only, or for good. Then looks at what is left, which
  /// must be as good as new.
  Outcome Run(std::uint64_t nth, std::string_view button, bool once = true) {
    Prepare();
    const auto before = Untouchable();
    bool failed = false;
    witness.FailWhen() = [&](std::string_view, std::uint64_t call) {
      if (nth == 0 || call < nth || (once && failed)) return false;
      return failed = true;
    };
    platform.user().AnswerErrorDialogs(button);
    const auto reports = platform.user().ErrorTexts().size();
    dialog->Load();
    dialog->txtAddress.Text("Sheet1!H30:I39");
    dialog->AddSymbolToSheet();
    witness.FailWhen() = {};
    const Outcome outcome{button == "btnRetry" ? Picture(book) : "", platform.user().ErrorTexts().size() > reports,
                          ScreenUpdating()};
    if (nth == 0) walk = Walk();
    EXPECT_EQ(Untouchable(), before) << "call " << nth;
    ExpectUsable(nth);
    return outcome;
  }

  void Prepare(int tapes = 2) {
    Renew();
    Workbook().Instruments(3).Tapes(tapes);
    Handler().CallStackClear();
    NewDialog();
  }

  /// What no failure may change: the quotes, the table's header, the records and tapes that are there.
  std::string Untouchable() {
    std::string text;
    const excel::Application excel(book.application());
    for (const auto& [sheet, cells] :
         {std::pair("TWS_Quotes", "A1:T9"), {"Ticker_tape_settings", "A1:E3"}, {"Sheet1", "A1:G29"}}) {
      const auto block = excel.Worksheets(sheet).Range(cells).FormulaLocalBlock();
      for (std::size_t i = 0; i < block->Rows(); ++i)
        for (std::size_t j = 0; j < block->Columns(); ++j) text += ToText(block->At(i, j)) + "|";
    }
    return text;
  }

  /// Nothing fails any more: the same dialog lists the instruments, knows the tapes, and inserts another one.
  void ExpectUsable(std::uint64_t nth) {
    const auto reports = platform.user().ErrorTexts().size();
    EXPECT_FALSE(dialog->Shown());
    dialog->OpredTotalOpt();
    dialog->LoadTable();
    ASSERT_EQ(dialog->VSFExcel.Rows(), 4) << "call " << nth;
    dialog->VSFExcel.Row(2);
    EXPECT_EQ(dialog->CheckAddressIntersect("Sheet1!A6:B9"), "'Name'=N1  'Data Range'=Sheet1!A6:B9");
    dialog->txtAddress.Text("Sheet1!K30:L39");
    EXPECT_TRUE(dialog->CheckField()) << "call " << nth;
    EXPECT_EQ(Value("Sheet1", "K30"), Variant("Local Time")) << "call " << nth;
    EXPECT_EQ(platform.user().ErrorTexts().size(), reports) << "call " << nth;
  }
};

TEST_F(Failing, RetryingAnyReportedCallOnceEndsWithTheSameWorkbookAsNoFailure) {
  const auto smooth = Run(0, "btnRetry");
  std::uint64_t reports = 0;
  for (const auto nth : walk) {
    const auto retried = Run(nth, "btnRetry");
    if (!retried.reported) continue;
    ++reports;
    EXPECT_TRUE(retried.picture == smooth.picture) << "call " << nth << "\n" << retried.picture;
  }
  EXPECT_GT(reports * Every(), 50u);
}

TEST_F(Failing, IgnoringAnyCallDoesNotLeaveTheScreenFrozenUnlessSwitchingItBackWasTheCallIgnored) {
  Run(0, "btnIgnore");
  int frozen = 0;
  for (const auto nth : walk)
    if (!Run(nth, "btnIgnore").updating) ++frozen;
  EXPECT_EQ(frozen, 2) << "the last calls of loading and of inserting";
}

TEST_F(Failing, AbortingAtAnyCallTouchesNothingThatWasThereAndLeavesTheDialogUsable) {
  Run(0, "btnAbort");
  for (const auto nth : walk) Run(nth, "btnAbort");
}

TEST_F(Failing, ASpreadsheetThatFailsForGoodIsSurvivedWithAbortAndWithIgnore) {
  Run(0, "btnAbort");
  for (std::size_t i = 0; i < walk.size(); i += 7) {
    const auto nth = walk[i];
    Run(nth, "btnAbort", false);
    Run(nth, "btnIgnore", false);
  }
}

TEST_F(Failing, AbortingAtAnyCallLeavesTheCallStackEmpty) {
  // Without tapes and without a field nothing is intersected, and no entry stays by intention.
  walk = {0};
  for (std::size_t i = 0; i < walk.size(); ++i) {
    const auto nth = walk[i];
    Prepare(0);
    witness.FailWhen() = [&](std::string_view, std::uint64_t call) { return nth != 0 && call == nth; };
    platform.user().AnswerErrorDialogs("btnAbort");
    dialog->Load();
    dialog->OptLastPrice.Value(false);
    dialog->txtAddress.Text("Sheet1!H30:I39");
    dialog->AddSymbolToSheet();
    witness.FailWhen() = {};
    if (nth == 0)
      for (const auto number : Walk()) walk.push_back(number);
    EXPECT_EQ(Handler().CallStackDepth(), 0u) << "call " << nth;
  }
  EXPECT_GT(platform.user().ErrorTexts().size() * Every(), 50u);
}

}  // namespace
}  // namespace pellora::test
