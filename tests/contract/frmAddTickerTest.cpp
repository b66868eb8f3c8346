#include "contract/frmAddTicker.h"

#include "core/Error.h"
#include "tests/Watching.h"
#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Cancel;
using tests::Names;
using tests::Settings;
using tests::UserAtForm;

constexpr std::array kTypeTexts = {"Stock", "Option", "Futures", "Index", "FutOpt", "Cash"};
constexpr std::array kTickers = {"txtSTKSymbol", "txtOPTSymbol", "txtFUTSymbol",
                                 "txtINDSymbol", "txtFOPSymbol", "txtCASHSymbol"};

class frmAddTickerTest : public tests::ContractDialog {};

TEST_F(frmAddTickerTest, CaptionsAndToolTipsReadAsTheyShould) {
  frmAddTicker dialog(platform.toolkit);
  EXPECT_EQ(dialog.Caption(), "Add new ticker");
  EXPECT_EQ(dialog.lblType.Caption(), "Type");
  EXPECT_EQ(dialog.ButInsert.Caption(), "Insert >>");
  EXPECT_EQ(dialog.ButInsert.ToolTip(), "Add Symbol to Project");
  EXPECT_EQ(dialog.ButInsertNew.Caption(), "Insert && new");
  EXPECT_EQ(dialog.ButInsertNew.ToolTip(), "Add Symbol to Project");
  EXPECT_EQ(dialog.ButCancel.Caption(), "Cancel");
}

TEST_F(frmAddTickerTest, MultipliersAreOneHundredBeforeAnythingIsLoaded) {
  frmAddTicker dialog(platform.toolkit);
  EXPECT_EQ(dialog.txtOPTMultiplier.Text(), "100");
  EXPECT_EQ(dialog.txtFUTMultiplier.Text(), "100");
}

TEST_F(frmAddTickerTest, EveryBoxStandsBesideItsLabel) {
  const std::vector<std::pair<std::string, Names>> pages = {
      {"C1ESTK",
       {"Ticker:txtSTKSymbol", "Exchange:ComSTKExchange", "Currency:ComSTKCurency",
        "Primary Exchange:txtPrimaryExchange"}},
      {"C1EOPT",
       {"Ticker:txtOPTSymbol", "Exchange:ComOPTExchange", "Currency:ComOPTCurency", "Expiry:txtOPTExpiry",
        "Right:ComOPTRight", "Multiplier:txtOPTMultiplier"}},
      {"C1EFUT",
       {"Ticker:txtFUTSymbol", "Exchange:ComFUTExchange", "Currency:ComFUTCurency", "Expiry:txtFUTExpiry",
        "Multiplier:txtFUTMultiplier"}},
      {"C1EIND", {"Ticker:txtINDSymbol", "Exchange:ComINDExchange", "Currency:ComIndCurency"}},
      {"C1EFOP",
       {"Ticker:txtFOPSymbol", "Exchange:ComFOPExchange", "Currency:ComFOPCurency", "Expiry:txtFOPExpiry",
        "Right:ComFOPRight"}},
      {"C1ECash", {"Ticker:txtCASHSymbol", "Exchange:ComCASHExchange", "Currency:ComCASHCurency"}}};
  frmAddTicker dialog(platform.toolkit);
  for (const auto& [panel, expected] : pages) {
    auto* container = dynamic_cast<Container*>(dialog.FindControl(panel));
    ASSERT_NE(container, nullptr) << panel;
    Names found;
    for (const auto* control : container->Children())
      if (control->Kind() == ControlKind::TextBox || control->Kind() == ControlKind::ComboBox)
        found.push_back(control->AccessibleName() + ":" + control->Name());
    EXPECT_EQ(found, expected) << panel;
  }
}

TEST_F(frmAddTickerTest, TheTypeListHoldsThePagesCaptionsInOrder) {
  Show(0, [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComType.Items(), Names(kTypeTexts.begin(), kTypeTexts.end()));
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, AListIndexOfMinusOneShowsTheStockPage) {
  Show(-1, [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComType.Text(), "Stock");
    EXPECT_EQ(form->CIndexType.CurrentPage(), 0);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, AListIndexOfThreeShowsTheIndexPage) {
  Show(3, [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComType.Text(), "Index");
    EXPECT_EQ(form->CIndexType.CurrentPage(), 3);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, ChoosingATypeShowsItsPageAndKeepsTheHandsInTheTypeList) {
  Show(0, [&](UserAtForm& hands) {
    for (int index = 5; index >= 0; --index) {
      hands.Choose("ComType", kTypeTexts[static_cast<std::size_t>(index)]);
      EXPECT_EQ(form->CIndexType.CurrentPage(), index);
      EXPECT_EQ(hands.FocusedName(), "ComType");
    }
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, OpensWithTheFocusInTheTypesTickerBox) {
  for (int index = 0; index < 6; ++index)
    Show(index, [&](UserAtForm& hands) {
      EXPECT_EQ(hands.FocusedName(), kTickers[static_cast<std::size_t>(index)]);
      Cancel(hands);
    });
}

TEST_F(frmAddTickerTest, TabsAreHiddenBecauseTheTypeListIsTheWayToSwitch) {
  EXPECT_FALSE(frmAddTicker(platform.toolkit).CIndexType.ShowTabs());
}

TEST_F(frmAddTickerTest, TabRunsAsOneReadsOnEveryPage) {
  const std::array<Names, 6> pages = {
      Names{"txtSTKSymbol", "ComSTKExchange", "ButSTKExchange", "ComSTKCurency", "ButSTKCurency", "txtPrimaryExchange"},
      Names{"txtOPTSymbol", "ComOPTExchange", "ButOPTExchange", "ComOPTCurency", "ButOPTCurency", "txtOPTExpiry",
            "ComOPTRight", "txtOPTMultiplier"},
      Names{"txtFUTSymbol", "ComFUTExchange", "ButFUTExchange", "ComFUTCurency", "ButFUTCurency", "txtFUTExpiry",
            "txtFUTMultiplier"},
      Names{"txtINDSymbol", "ComINDExchange", "ButINDExchange", "ComIndCurency", "ButINDCurency"},
      Names{"txtFOPSymbol", "ComFOPExchange", "ButFOPExchange", "ComFOPCurency", "ButFOPCurency", "txtFOPExpiry",
            "ComFOPRight"},
      Names{"txtCASHSymbol", "ComCASHExchange", "ButCASHExchange", "ComCASHCurency", "ButCASHCurency"}};
  for (std::size_t index = 0; index < pages.size(); ++index) {
    Names expected = {"ComType"};
    expected.insert(expected.end(), pages[index].begin(), pages[index].end());
    for (const char* button : {"ButInsert", "ButInsertNew", "ButCancel"}) expected.push_back(button);
    Show(static_cast<int>(index), [&](UserAtForm& hands) {
      EXPECT_EQ(tests::NamesOf(form->TabOrder()), expected);
      Cancel(hands);
    });
  }
}

TEST_F(frmAddTickerTest, AccessKeysAreUniqueOnEveryPageAndInTheCaptions) {
  for (int index = 0; index < 6; ++index)
    Show(index, [&](UserAtForm& hands) {
      EXPECT_EQ(tests::AccessKeyFaults(*form), "") << index;
      Cancel(hands);
    });
}

TEST_F(frmAddTickerTest, EveryBoxOfEveryPageHasAnAccessKeyThatReachesIt) {
  for (int index = 0; index < 6; ++index)
    Show(index, [&](UserAtForm& hands) {
      for (const auto* control : form->Descendants()) {
        if (control->Kind() != ControlKind::Label || !control->Usable()) continue;
        ASSERT_NE(control->AccessKey(), 0) << control->Name();
        hands.PressAccessKey(control->AccessKey());
        const auto* reached = form->FindControl(hands.FocusedName());
        EXPECT_EQ(reached->AccessibleName(), control->Caption());
      }
      Cancel(hands);
    });
}

TEST_F(frmAddTickerTest, EveryControlHasANameForAssistivePrograms) {
  for (int index = 0; index < 6; ++index)
    Show(index, [&](UserAtForm& hands) {
      EXPECT_EQ(tests::NamelessControls(*form), "");
      Cancel(hands);
    });
  EXPECT_EQ(form->ButCASHExchange.AccessibleName(), "Edit exchanges list");
  EXPECT_EQ(form->ButINDCurency.AccessibleName(), "Edit currencies list");
}

TEST_F(frmAddTickerTest, NothingOverlapsOnAnyPageAtAnyScaleOrSize) {
  for (const int dpi : {96, 120, 144, 192}) {
    platform.toolkit.dpi = dpi;
    for (int index = 0; index < 6; ++index)
      Show(index, [&](UserAtForm& hands) {
        EXPECT_EQ(tests::LayoutFaults(*form), "") << index << " at " << dpi;
        hands.Resize({900, 700});
        EXPECT_EQ(tests::LayoutFaults(*form), "") << index << " enlarged at " << dpi;
        hands.Resize({10, 10});
        EXPECT_EQ(tests::LayoutFaults(*form), "") << index << " made small at " << dpi;
        Cancel(hands);
      });
  }
}

TEST_F(frmAddTickerTest, TheLargestPageReachesDownToTheButtons) {
  Show(kOption, [&](UserAtForm& hands) {
    const int between = form->ButInsert.Bounds().top - form->txtOPTMultiplier.Bounds().bottom;
    EXPECT_GT(between, 0);
    EXPECT_LE(between, 12);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, BoxesStandAtTheSamePlaceOnEveryPage) {
  Show(0, [&](UserAtForm& hands) {
    const auto type = form->ComType.Bounds();
    for (const char* ticker : kTickers) {
      EXPECT_EQ(hands.Get<TextBox>(ticker).Bounds(), form->txtSTKSymbol.Bounds()) << ticker;
      EXPECT_EQ(hands.Get<TextBox>(ticker).Bounds().left, type.left);
      EXPECT_EQ(hands.Get<TextBox>(ticker).Bounds().right, type.right);
    }
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, InsertWithAnInvalidFieldShowsTheMessageAndSavesNothing) {
  Show(
      kIndex,
      [&](UserAtForm& hands) {
        hands.Click("ButInsert");
        EXPECT_TRUE(form->Shown());
        EXPECT_EQ(form->Tag(), "");
        EXPECT_TRUE(platform.registry.Dump().empty());
        hands.CloseBox();
      },
      [&] { user().ExpectMessage("Please fill in the 'Ticker' field "); });
}

TEST_F(frmAddTickerTest, InsertAndNewWithAnInvalidFieldStaysOpenToo) {
  Show(
      kIndex,
      [&](UserAtForm& hands) {
        hands.Click("ButInsertNew");
        EXPECT_TRUE(form->Shown());
        EXPECT_EQ(form->Tag(), "");
        Cancel(hands);
      },
      [&] { user().ExpectMessage("Please fill in the 'Ticker' field "); });
}

TEST_F(frmAddTickerTest, InsertSignalsOneAndHides) {
  Show(kIndex, [](UserAtForm& hands) {
    hands.Type("txtINDSymbol", "XYZ");
    hands.Click("ButInsert");
  });
  EXPECT_EQ(form->Tag(), "1");
  EXPECT_EQ(form->txtINDSymbol.Text(), "XYZ");
  EXPECT_EQ(platform.toolkit.formPeers, 0);
}

/// What a form's `Tag` holds at the moment its showing ends.
class TagWhenHidden : public frmAddTickerTest {
 protected:
  TagWhenHidden() {
    toolkit = &watching;
    watching.hiding = [this](Form& hidden) { tag = hidden.Tag(); };
  }
  void Leave(const char* button) {
    Show(kCash, [&](UserAtForm& hands) {
      form->Tag("before");
      hands.Type("txtCASHSymbol", "EUR");
      hands.Click(button);
    });
  }
  tests::WatchingToolkit watching{platform.toolkit};
  std::string tag = "not hidden";
};

TEST_F(TagWhenHidden, InsertHidesBeforeItSignals) {
  Leave("ButInsert");
  EXPECT_EQ(tag, "before");
  EXPECT_EQ(form->Tag(), "1");
}

TEST_F(TagWhenHidden, InsertAndNewHidesBeforeItSignals) {
  Leave("ButInsertNew");
  EXPECT_EQ(tag, "before");
  EXPECT_EQ(form->Tag(), "4");
}

TEST_F(TagWhenHidden, CancelSignalsBeforeItHidesUnlikeInsertOnPurpose) {
  Leave("ButCancel");
  EXPECT_EQ(tag, "2");
}

TEST_F(frmAddTickerTest, InsertSavesTheFormsPlacementAsText) {
  Show(kIndex, [](UserAtForm& hands) {
    hands.Type("txtINDSymbol", "XYZ");
    hands.Click("ButInsert");
  });
  const auto stored = Stored("Windows settings\\frmAddTicker");
  EXPECT_EQ(stored.size(), 9u);
  EXPECT_EQ(stored.at("WindowState"), "1");
  EXPECT_EQ(stored.count("NormalPosLeft"), 1u);
}

TEST_F(frmAddTickerTest, InsertAndNewSavesTheFormsPlacementToo) {
  Show(kIndex, [&](UserAtForm& hands) {
    form->SetPlacement({.normal = {310, 210, 1000, 800}});
    hands.Type("txtINDSymbol", "XYZ");
    hands.Click("ButInsertNew");
  });
  const auto stored = Stored("Windows settings\\frmAddTicker");
  EXPECT_EQ(stored.size(), 9u);
  EXPECT_EQ(stored.at("NormalPosLeft"), "310");
}

TEST_F(frmAddTickerTest, TheNextOpeningIsWhereTheLastInsertWas) {
  const Placement moved{.normal = {300, 200, 1000, 800}};
  Show(kIndex, [&](UserAtForm& hands) {
    form->SetPlacement(moved);
    hands.Type("txtINDSymbol", "XYZ");
    hands.Click("ButInsert");
  });
  Show(kIndex, [&](UserAtForm& hands) {
    EXPECT_EQ(form->GetPlacement()->normal, moved.normal);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, AFirstOpeningIsCentred) {
  Show(0, [&](UserAtForm& hands) {
    const auto normal = form->GetPlacement()->normal;
    EXPECT_NEAR(normal.left, (1920 - normal.Width()) / 2.0, 1);
    EXPECT_NEAR(normal.top, (1080 - normal.Height()) / 2.0, 1);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, CancelSignalsTwoAndSavesNothing) {
  Show(kStock, [](UserAtForm& hands) {
    hands.Type("txtSTKSymbol", "XYZ");
    hands.Choose("ComSTKExchange", "NYSE");
    hands.Click("ButCancel");
  });
  EXPECT_EQ(form->Tag(), "2");
  EXPECT_TRUE(platform.registry.Dump().empty());
}

TEST_F(frmAddTickerTest, AfterCancelTheNextOpeningShowsThePreviousSavedChoices) {
  Show(kStock, [](UserAtForm& hands) {
    hands.Type("txtSTKSymbol", "XYZ");
    hands.Choose("ComSTKExchange", "NYSE");
    hands.Click("ButInsert");
  });
  Show(kStock, [](UserAtForm& hands) {
    hands.Choose("ComSTKExchange", "SMART");
    hands.Type("txtPrimaryExchange", "ELSEWHERE");
    Cancel(hands);
  });
  Show(kStock, [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComSTKExchange.Text(), "NYSE");
    EXPECT_EQ(form->txtPrimaryExchange.Text(), "SUPERSOES");
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, TheCloseBoxLeavesTheTagEmptyAndSavesNothing) {
  Show(kStock, [](UserAtForm& hands) {
    hands.Type("txtSTKSymbol", "XYZ");
    hands.CloseBox();
  });
  EXPECT_EQ(form->Tag(), "");
  EXPECT_TRUE(platform.registry.Dump().empty());
}

TEST_F(frmAddTickerTest, InsertAndNewSignalsFourAndTheNextOpeningStartsWithTheSameChoices) {
  Show(kOption, [](UserAtForm& hands) {
    hands.Type("txtOPTSymbol", "XYZ");
    hands.Choose("ComOPTExchange", "ISE");
    hands.Choose("ComOPTCurency", "GBP");
    hands.Type("txtOPTExpiry", "200903");
    hands.Choose("ComOPTRight", "CALL");
    hands.Type("txtOPTMultiplier", "10");
    hands.Click("ButInsertNew");
  });
  EXPECT_EQ(form->Tag(), "4");
  Show(form->ComType.ListIndex(), [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComType.Text(), "Option");
    EXPECT_EQ(form->txtOPTSymbol.Text(), "");
    EXPECT_EQ(form->ComOPTExchange.Text(), "ISE");
    EXPECT_EQ(form->ComOPTCurency.Text(), "GBP");
    EXPECT_EQ(form->txtOPTExpiry.Text(), "200903");
    EXPECT_EQ(form->ComOPTRight.Text(), "CALL");
    EXPECT_EQ(form->txtOPTMultiplier.Text(), "10");
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, FiftyInstrumentsInARowNeedATickerAndOneKeyEach) {
  for (int i = 0; i < 50; ++i) {
    const std::string ticker = "T" + std::to_string(i);
    Show(kCash, [&](UserAtForm& hands) {
      hands.TypeHere(ticker);
      hands.PressAccessKey('w');
    });
    ASSERT_EQ(form->Tag(), "4");
    ASSERT_EQ(form->txtCASHSymbol.Text(), ticker);
  }
  EXPECT_EQ(platform.toolkit.formPeers, 0);
}

TEST_F(frmAddTickerTest, EnterInserts) {
  Show(kCash, [](UserAtForm& hands) {
    hands.TypeHere("EUR");
    hands.PressEnter();
  });
  EXPECT_EQ(form->Tag(), "1");
}

TEST_F(frmAddTickerTest, EscapeCancels) {
  Show(kCash, [](UserAtForm& hands) { hands.PressEscape(); });
  EXPECT_EQ(form->Tag(), "2");
}

TEST_F(frmAddTickerTest, TheTypeListBelowItsLastEntryStaysAtTheLastPage) {
  Show(kCash, [&](UserAtForm& hands) {
    form->ComType.SetFocus();
    hands.PressKey({Key::Down});
    EXPECT_EQ(form->CIndexType.CurrentPage(), 5);
    Cancel(hands);
  });
}

TEST_F(frmAddTickerTest, ATypeIndexThatDoesNotExistIsReportedAndSelectsNone) {
  user().AnswerErrorDialogs("btnIgnore");
  Show(6, [&](UserAtForm& hands) {
    EXPECT_EQ(form->ComType.ListIndex(), -1);
    Cancel(hands);
  });
  ASSERT_EQ(user().ErrorTexts().size(), 1u);
  EXPECT_NE(Find(user().ErrorTexts().at(0), "in Pellora.frmAddTicker.Form_Load at line"), std::string::npos);
}

TEST_F(frmAddTickerTest, EveryRoutineIsReportedUnderItsQualifiedName) {
  TraceRoutines();
  Show(kCash, [](UserAtForm& hands) {
    hands.Type("txtCASHSymbol", "EUR");
    hands.Click("ButInsertNew");
  });
  const Names fillings(14, "Add_Combobox");  // six currency lists, six exchange lists, two lists of rights
  Names expected = {"Form_Load", "LoadParamert"};
  expected.insert(expected.end(), fillings.begin(), fillings.end());
  for (const char* routine :
       {"ComType_Click", "ButInsertNew_Click", "CheckParametr", "SaveParamert", "ComboBoxToStr", "ComboBoxToStr"})
    expected.push_back(routine);
  for (auto& routine : expected) routine.insert(0, "Pellora.frmAddTicker.");
  EXPECT_EQ(RoutinesEntered(), expected);
}

TEST_F(frmAddTickerTest, InsertAndCancelAreReportedUnderTheirOwnNames) {
  Show(kCash, [&](UserAtForm& hands) {
    hands.Type("txtCASHSymbol", "EUR");
    TraceRoutines();
    hands.Click("ButInsert");
  });
  EXPECT_EQ(RoutinesEntered().at(0), "Pellora.frmAddTicker.ButInsert_Click");
  platform.logFiles.files.clear();
  Show(kCash, [&](UserAtForm& hands) {
    platform.logFiles.files.clear();
    hands.Click("ButCancel");
  });
  EXPECT_EQ(RoutinesEntered(), Names{"Pellora.frmAddTicker.ButCancel_Click"});
}

// One instrument of each type, by keys alone: Alt+Y to the type list, its name, Alt+T to the ticker, Tab from field to
// field past the "..." buttons, Enter.
struct KeyboardEntry {
  const char* type;
  std::vector<const char*> fields;  // one for each stop of Tab after the ticker; "" passes by
  Settings expected;                // control and text
};

TEST_F(frmAddTickerTest, TheSixTypesAreEnteredByKeyboardOnly) {
  const std::vector<KeyboardEntry> entries = {
      {"Stock",
       {"NYSE", "", "EUR", "", "ARCA"},
       {{"ComSTKExchange", "NYSE"}, {"ComSTKCurency", "EUR"}, {"txtPrimaryExchange", "ARCA"}}},
      {"Option",
       {"ISE", "", "GBP", "", "200806", "CALL", "10"},
       {{"ComOPTExchange", "ISE"},
        {"ComOPTCurency", "GBP"},
        {"txtOPTExpiry", "200806"},
        {"ComOPTRight", "CALL"},
        {"txtOPTMultiplier", "10"}}},
      {"Futures",
       {"CME", "", "USD", "", "Jun08", "50"},
       {{"ComFUTExchange", "CME"}, {"ComFUTCurency", "USD"}, {"txtFUTExpiry", "Jun08"}, {"txtFUTMultiplier", "50"}}},
      {"Index", {"CBOE", "", "USD"}, {{"ComINDExchange", "CBOE"}, {"ComIndCurency", "USD"}}},
      {"FutOpt",
       {"ECBOT", "", "USD", "", "200809", "CALL"},
       {{"ComFOPExchange", "ECBOT"}, {"ComFOPCurency", "USD"}, {"txtFOPExpiry", "200809"}, {"ComFOPRight", "CALL"}}},
      {"Cash", {"IDEAL", "", "HKD"}, {{"ComCASHExchange", "IDEAL"}, {"ComCASHCurency", "HKD"}}},
  };
  for (const auto& entry : entries) {
    Show(-1, [&](UserAtForm& hands) {
      hands.PressAccessKey('y');
      hands.TypeHere(entry.type);
      hands.PressAccessKey('T');
      hands.TypeHere("XYZ");
      for (const char* text : entry.fields) {
        hands.PressTab();
        if (*text) hands.TypeHere(text);
      }
      hands.PressEnter();
    });
    EXPECT_EQ(form->Tag(), "1") << entry.type;
    const auto* type = FindSecurityType(form->ComType.Text());
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->text, entry.type);
    EXPECT_EQ(FieldText(*form, type->symbol), "XYZ");
    for (const auto& [name, text] : entry.expected) {
      const auto* control = form->FindControl(name);
      const auto* box = dynamic_cast<const TextBox*>(control);
      EXPECT_EQ(box ? box->Text() : dynamic_cast<const ComboBox&>(*control).Text(), text) << name;
    }
  }
}

}  // namespace
}  // namespace pellora
