#include <set>

#include "Desk.h"
#include "forms/NaturalSize.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

constexpr std::string_view kPlace = "Software\\CORVANE\\Vantix\\Windows settings\\frmAddRibbon";

class TapeDialog : public Desk {
 protected:
  bool PlaceSaved() const { return platform.registry.HasKey(kCurrentUser, kPlace); }
};
class TapeAddress : public Desk {};
class Buttons : public Desk {};

TEST_F(TapeDialog, LooksAsDesignedBeforeItIsLoaded) {
  EXPECT_EQ(dialog->Caption(), "Ticker tape");
  EXPECT_EQ(dialog->BorderStyle(), BorderStyle::Sizable);
  EXPECT_EQ(dialog->DefaultButton(), &dialog->ButInsert);
  EXPECT_EQ(dialog->CancelButton(), &dialog->ButCancel);
  EXPECT_TRUE(dialog->OptLastPrice.Value());
  EXPECT_EQ(dialog->txtName.ToolTip(), "Tape header for last price");
  EXPECT_EQ(dialog->txtNameSize.ToolTip(), "Tape header for last size");
  EXPECT_EQ(dialog->txtAddress.ToolTip(), "Tape location");
}

TEST_F(TapeDialog, EveryControlHasItsCaption) {
  const std::pair<const char*, const char*> table[] = {{"lblPortfolio", "Portfolio"},
                                                       {"FraAvailableFields", "Available fields"},
                                                       {"OptLastPrice", "last price"},
                                                       {"OptAskPrice", "ask price"},
                                                       {"OptBidPrice", "bid price"},
                                                       {"OptLow", "low"},
                                                       {"OptHigh", "high"},
                                                       {"OptClose", "close"},
                                                       {"OptVolume", "volume"},
                                                       {"chkLastSize", "last size"},
                                                       {"chkAskSize", "ask size"},
                                                       {"chkBidSize", "bid size"},
                                                       {"chkAddName", "Add field name"},
                                                       {"lblRibbon", "Ticker tape"},
                                                       {"ButGetAddress", "..."},
                                                       {"ButInsert", "Insert >>"},
                                                       {"ButInsertNew", "Insert && new"},
                                                       {"ButCancel", "Cancel"},
                                                       {"lblAddress", "Tape location"},
                                                       {"lblName", "Tape header for last price"},
                                                       {"lblNameSize", "Tape header for last size"}};
  for (const auto& [name, caption] : table) {
    const auto* control = dialog->FindControl(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(control->Caption(), caption);
  }
}

TEST_F(TapeDialog, TheGridsHaveTheirColumns) {
  const std::pair<const char*, int> instruments[] = {
      {"Ticker", 1050}, {"Type", 495},       {"Expiry", 960},    {"Strike", 960},
      {"P/C", 495},     {"Multiplier", 780}, {"Exchange", 1020}, {"Primary Exchange", 1455},
      {"Currency", 960}};
  ASSERT_EQ(dialog->VSFExcel.Cols(), 9);
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(dialog->VSFExcel.ColumnAt(i).header, instruments[i].first);
    EXPECT_EQ(dialog->VSFExcel.ColumnAt(i).width * 15, instruments[i].second);
  }
  const char* tapes[] = {"Tape header for Ticker", "Link to ticker", "Tape header for Size", "Tape location "};
  ASSERT_EQ(dialog->VSFChart.Cols(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(dialog->VSFChart.ColumnAt(i).header, tapes[i]);
}

TEST_F(TapeDialog, NoAccessKeyIsUsedTwiceAndEachStandsInItsCaption) {
  std::set<char> used;
  for (const Control* control : dialog->Descendants()) {
    const char key = control->AccessKey();
    if (!key) continue;
    EXPECT_TRUE(used.insert(key).second) << control->Name();
    EXPECT_NE(control->Caption().find_first_of(std::string{key, static_cast<char>(key | 0x20)}), std::string::npos)
        << control->Name();
  }
  EXPECT_EQ(used.size(), 18u);
}

TEST_F(TapeDialog, EveryControlAtWhichTabStopsHasANameForAssistivePrograms) {
  Workbook().Instruments(1);
  Use([&](UserAtForm&) {
    for (const Control* control : dialog->TabOrder()) EXPECT_NE(control->AccessibleName(), "") << control->Name();
    EXPECT_EQ(dialog->txtName.AccessibleName(), "Tape header for last price");
    EXPECT_EQ(dialog->txtAddress.AccessibleName(), "Tape location");
    EXPECT_EQ(dialog->VSFExcel.AccessibleName(), "Portfolio");
    EXPECT_EQ(dialog->VSFChart.AccessibleName(), "Ticker tape");
  });
}

TEST_F(TapeDialog, TabGoesThroughItAsOneReads) {
  Workbook().Instruments(1);
  Use([&](UserAtForm& user) {
    user.Click("chkLastSize");
    std::string order;
    for (const Control* control : dialog->TabOrder()) order += control->Name() + " ";
    EXPECT_EQ(order,
              "VSFExcel OptLastPrice chkLastSize chkAddName txtName txtNameSize VSFChart txtAddress ButGetAddress "
              "ButInsert ButInsertNew ButCancel ");
  });
}

TEST_F(TapeDialog, AccessKeysReachGridsAndBoxes) {
  Workbook().Instruments(1);
  Use([&](UserAtForm& user) {
    const std::pair<char, const char*> table[] = {
        {'P', "VSFExcel"}, {'T', "txtName"}, {'O', "txtAddress"}, {'R', "VSFChart"}};
    for (const auto& [key, name] : table) {
      user.PressAccessKey(key);
      EXPECT_EQ(user.FocusedName(), name);
    }
  });
}

TEST_F(TapeDialog, NothingOverlapsAtAnyScaleAndBothGridsGrowWithTheWindow) {
  Workbook().Instruments(1);
  for (const int dpi : {96, 120, 144, 192}) {
    platform.toolkit.dpi = dpi;
    NewDialog();
    Use([&](UserAtForm& user) {
      const auto first = dialog->VSFExcel.Bounds();
      const auto second = dialog->VSFChart.Bounds();
      user.Resize({3000, 2400});
      EXPECT_GT(dialog->VSFExcel.Bounds().Width(), first.Width());
      EXPECT_GT(dialog->VSFExcel.Bounds().Height(), first.Height());
      EXPECT_GT(dialog->VSFChart.Bounds().Width(), second.Width());
      EXPECT_GT(dialog->VSFChart.Bounds().Height(), second.Height());
      std::vector<const Control*> leaves;
      for (const Control* control : dialog->Descendants())
        if (!dynamic_cast<const Container*>(control)) leaves.push_back(control);
      for (const auto* one : leaves)
        for (const auto* other : leaves) {
          const auto a = one->Bounds(), b = other->Bounds();
          EXPECT_GT(a.Width() * a.Height(), 0) << one->Name();
          EXPECT_TRUE(one == other || a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top)
              << one->Name() << " " << other->Name() << " at " << dpi;
        }
    });
  }
}

TEST_F(TapeDialog, AtItsLeastSizeNoHeaderIsWiderThanItsColumnsShare) {
  Workbook().Instruments(1);
  for (const int dpi : {96, 120, 144, 192}) {
    platform.toolkit.dpi = dpi;
    const headless::HeadlessMeasurer measurer(dpi);
    NewDialog();
    Use([&](UserAtForm& user) {
      user.Resize({1, 1});
      for (const Grid* grid : {&dialog->VSFExcel, &dialog->VSFChart}) {
        const int room = grid->Bounds().Width() - measurer.Scale(17) - measurer.Scale(4);
        int total = 0;
        for (int i = 0; i < grid->Cols(); ++i) total += NaturalColumnWidth(*grid, i, measurer);
        for (int i = 0; i < grid->Cols(); ++i) {
          const auto& header = grid->ColumnAt(i).header;
          const int share = room * NaturalColumnWidth(*grid, i, measurer) / total;
          EXPECT_GE(share, measurer.Measure(header, TextStyle::Normal).width + measurer.Scale(12))
              << header << " at " << dpi;
        }
      }
    });
  }
}

TEST_F(TapeDialog, CloseBoxHidesSaysCloseAndKeepsItLoaded) {
  Workbook().Instruments(2);
  Use([&](UserAtForm& user) {
    user.SelectRow("VSFExcel", 2);
    user.CloseBox();
  });
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  EXPECT_TRUE(dialog->Loaded());
  EXPECT_EQ(dialog->VSFExcel.Row(), 2);
}

TEST_F(TapeDialog, ASecondShowingKeepsWhatWasChosenAndReadsNothingAgain) {
  Workbook().Instruments(2);
  Use([&](UserAtForm& user) { user.Click("OptVolume"); });
  const auto calls = excel::CallCount();
  Use([&](UserAtForm&) { EXPECT_TRUE(dialog->OptVolume.Value()); });
  EXPECT_EQ(excel::CallCount(), calls);
}

TEST_F(TapeDialog, ItsPlaceIsSavedWhenTheWindowIsClosed) {
  Workbook();
  Use([](UserAtForm& user) { user.CloseBox(); });
  EXPECT_TRUE(PlaceSaved());
}

TEST_F(TapeDialog, CancelDoesNotSaveItsPlace) {
  Workbook();
  Use([](UserAtForm& user) { user.Click("ButCancel"); });
  EXPECT_FALSE(PlaceSaved());
}

TEST_F(TapeDialog, ASecondClosingSavesTheNewPlaceToo) {
  Workbook();
  Use([](UserAtForm& user) { user.CloseBox(); });
  Use([](UserAtForm& user) {
    auto place = *user.form().GetPlacement();
    place.normal = {300, 200, place.normal.Width() + 300, place.normal.Height() + 200};
    user.form().SetPlacement(place);
    user.CloseBox();
  });
  const auto saved = platform.registry.QueryValue(kCurrentUser, kPlace, "NormalPosLeft");
  ASSERT_TRUE(saved.has_value());
  EXPECT_EQ(*saved, RegistryValue(std::string("300")));
}

TEST_F(TapeDialog, ItComesBackWhereItWasClosed) {
  Workbook();
  Use([](UserAtForm& user) {
    auto place = *user.form().GetPlacement();
    place.normal = {40, 50, 40 + place.normal.Width(), 50 + place.normal.Height()};
    user.form().SetPlacement(place);
    user.CloseBox();
  });
  NewDialog();
  Use([](UserAtForm& user) {
    EXPECT_EQ(user.form().GetPlacement()->normal.left, 40);
    EXPECT_EQ(user.form().GetPlacement()->normal.top, 50);
  });
}

TEST_F(TapeDialog, ClosingASecondTimeWithoutAStoreSavesNothingAndReportsNothing) {
  Workbook();
  Use([](UserAtForm& user) { user.CloseBox(); });
  dialog->AppSettings(nullptr);
  Use([](UserAtForm& user) { user.CloseBox(); });
  EXPECT_TRUE(platform.user().ErrorTexts().empty());
}

TEST_F(TapeDialog, UnloadingByCodeIsLetThroughWithBothArgumentsZero) {
  Workbook();
  dialog->Load();
  std::int16_t cancel = 7, mode = kUnloadByCode;
  dialog->Form_QueryUnload(cancel, mode);
  EXPECT_EQ(cancel, 0);
  EXPECT_EQ(mode, 0);
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  dialog->Unload();
  EXPECT_FALSE(dialog->Loaded());
}

TEST_F(TapeDialog, ClosingByTheUserIsCancelledAndKeepsTheMode) {
  Workbook();
  dialog->Load();
  std::int16_t cancel = 7, mode = kUnloadByUser;
  dialog->Form_QueryUnload(cancel, mode);
  EXPECT_EQ(cancel, 1);
  EXPECT_EQ(mode, kUnloadByUser);
}

/// The workbook is to pick a location; then the window is closed while its place cannot be saved.
class UnsavedPlace : public TapeDialog {
 protected:
  void CloseAnswering(std::string_view answer) {
    Workbook().Instruments(1);
    Use([](UserAtForm& user) { user.Click("ButGetAddress"); });
    ASSERT_EQ(dialog->Tag(), "DATABEGINNING");
    platform.registry.refuseWrites = 5;
    platform.user().AnswerErrorDialogs(answer);
    Use([](UserAtForm& user) { user.CloseBox(); });
    EXPECT_EQ(ReportedRoutines(), (std::vector<std::string>{"Form_QueryUnload"}));
  }
};

TEST_F(UnsavedPlace, ClosingWithAbortStillHidesSaysCloseAndKeepsItLoaded) {
  CloseAnswering("btnAbort");
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  EXPECT_FALSE(dialog->Shown());
  EXPECT_TRUE(dialog->Loaded());
}

TEST_F(UnsavedPlace, ClosingWithIgnoreHidesSaysCloseAndKeepsItLoaded) {
  CloseAnswering("btnIgnore");
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  EXPECT_FALSE(dialog->Shown());
  EXPECT_TRUE(dialog->Loaded());
}

TEST_F(UnsavedPlace, TheProgramsOwnUnloadProceedsAlsoWhenItIsAborted) {
  Workbook();
  dialog->Load();
  platform.registry.refuseWrites = 5;
  platform.user().ExpectErrorDialog("btnAbort");
  dialog->Unload();
  EXPECT_FALSE(dialog->Loaded());
}

TEST_F(TapeDialog, LoadingRunsItsStepsInTheirOrder) {
  Workbook();
  const auto names = Entered([&] { dialog->Load(); });
  std::vector<std::string> steps;
  for (const auto& name : names)
    if (name != "CheckAddres") steps.push_back(name);
  EXPECT_EQ(steps, (std::vector<std::string>{"Form_Load", "EnableOptionButton", "OpredTotalOpt", "LoadTable",
                                             "GotoLastCell", "EnableGroup", "EnableSizeName", "ViewToTable",
                                             "modifyAddress", "ReturnColumnsCount"}));
}

TEST_F(TapeDialog, ItsPlaceIsRestoredBeforeTheWorkbookIsRead) {
  Workbook();
  Use([](UserAtForm& user) {
    auto place = *user.form().GetPlacement();
    place.normal = {40, 50, 40 + place.normal.Width(), 50 + place.normal.Height()};
    user.form().SetPlacement(place);
    user.CloseBox();
  });
  NewDialog();
  std::vector<int> lefts;
  witness.FailWhen() = [&](std::string_view, std::uint64_t) {
    lefts.push_back(dialog->GetPlacement()->normal.left);
    return false;
  };
  dialog->Load();
  witness.FailWhen() = {};
  ASSERT_FALSE(lefts.empty());
  EXPECT_EQ(lefts.front(), 40);
}

TEST_F(TapeDialog, LoadingWithoutAStoreIsReportedAndGoesOn) {
  Workbook().Instruments(1);
  dialog->AppSettings(nullptr);
  platform.user().AnswerErrorDialogs("btnIgnore");
  dialog->Load();
  EXPECT_EQ(ReportedRoutines().front(), "Form_Load");
  EXPECT_EQ(dialog->VSFExcel.Rows(), 2);
}

TEST_F(TapeDialog, RoutinesThatEndNormallyLeaveTheCallStackAsTheyFoundIt) {
  Workbook().Instruments(3);
  dialog->Load();
  EXPECT_EQ(Handler().CallStackDepth(), 0u);
}

TEST_F(TapeAddress, ReadsBackTheLastAddressWritten) {
  Workbook();
  EXPECT_EQ(dialog->TapeAddress(), "");
  dialog->TapeAddress("Sheet1!B3");
  EXPECT_EQ(dialog->TapeAddress(), "Sheet1!B3");
}

TEST_F(TapeAddress, WritingPutsTheAreaInTapeSizeIntoTheLocationBox) {
  Workbook();
  dialog->TapeAddress("Sheet1!B3");
  EXPECT_EQ(dialog->txtAddress.Text(), "Sheet1!B3:C22");
  dialog->TapeAddress("nonsense!");
  EXPECT_EQ(dialog->txtAddress.Text(), "");
}

TEST_F(TapeAddress, ALocationWrittenBeforeTheFirstShowingIsKept) {
  Workbook().Instruments(1);
  dialog->TapeAddress("Sheet1!B3:C9");
  dialog->Load();
  EXPECT_EQ(dialog->txtAddress.Text(), "Sheet1!B3:C9");
}

TEST_F(Buttons, CancelHidesAndSaysClose) {
  Workbook();
  Use([](UserAtForm& user) { user.Click("ButCancel"); });
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  EXPECT_TRUE(dialog->Loaded());
}

TEST_F(Buttons, EscapeCancels) {
  Workbook();
  Use([](UserAtForm& user) {
    user.PressEscape();
    EXPECT_FALSE(user.form().Shown());
  });
  EXPECT_EQ(dialog->Tag(), "CLOSE");
}

TEST_F(Buttons, GetAddressHidesAndAsksTheWorkbookForTheLocation) {
  Workbook().Instruments(1);
  Use([](UserAtForm& user) { user.Click("ButGetAddress"); });
  EXPECT_EQ(dialog->Tag(), "DATABEGINNING");
}

TEST_F(Buttons, InsertHidesAndSaysCloseWhenTheTapeWasInserted) {
  Workbook().Instruments(1);
  Use([](UserAtForm& user) {
    user.Type("txtAddress", "Sheet1!B3:C9");
    user.PressEnter();
    EXPECT_FALSE(user.form().Shown());
  });
  EXPECT_EQ(dialog->Tag(), "CLOSE");
  EXPECT_EQ(Value("Sheet1", "B3"), Variant("Local Time"));
}

TEST_F(Buttons, InsertStaysOpenWhenTheTapeWasRefused) {
  Workbook().Instruments(1);
  Use([&](UserAtForm& user) {
    platform.user().ExpectMessage("Please fill in the 'Tape location' field ");
    user.Click("ButInsert");
    EXPECT_TRUE(user.form().Shown());
    EXPECT_EQ(dialog->Tag(), "");
  });
}

TEST_F(Buttons, InsertAndNewStaysOpenAndShowsTheTapeInThePreview) {
  Workbook().Instruments(1);
  Use([&](UserAtForm& user) {
    user.Type("txtAddress", "Sheet1!B3:C9");
    user.Click("ButInsertNew");
    EXPECT_TRUE(user.form().Shown());
    ASSERT_EQ(dialog->VSFChart.Rows(), 2);
    EXPECT_EQ(dialog->VSFChart.Text(1, 3), "Sheet1!B3:C9");
  });
}

TEST_F(Buttons, InsertAndNewIgnoresTheRefusalByIntentionAndShowsTheCurrentRowAgain) {
  Workbook().Instruments(1).Tape("N", "=TWS_Quotes!$N$2", "", "Sheet1!A1:B4");
  Use([&](UserAtForm& user) {
    dialog->VSFChart.Rows(1);
    platform.user().ExpectMessage("Please fill in the 'Tape location' field ");
    user.Click("ButInsertNew");
    EXPECT_EQ(dialog->VSFChart.Rows(), 2);
    EXPECT_TRUE(user.form().Shown());
  });
}

TEST_F(Buttons, InsertAndNewDisablesTheChoicesOfARowThatIsIncompleteByThen) {
  Workbook().Instruments(1);
  Use([&](UserAtForm& user) {
    dialog->VSFExcel.RowData(1, "0\r\n$A$2:$S$2");
    platform.user().ExpectMessage("Please fill in the 'Tape location' field ");
    user.Click("ButInsertNew");
    for (const Control* control : std::initializer_list<const Control*>{
             &dialog->OptLastPrice, &dialog->OptAskPrice, &dialog->OptBidPrice, &dialog->OptLow, &dialog->OptHigh,
             &dialog->OptClose, &dialog->OptVolume, &dialog->chkLastSize, &dialog->txtName, &dialog->txtAddress,
             &dialog->ButInsert, &dialog->ButInsertNew})
      EXPECT_FALSE(control->Enabled()) << control->Name();
  });
}

}  // namespace
}  // namespace pellora::test
