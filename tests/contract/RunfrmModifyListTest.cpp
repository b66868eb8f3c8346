#include "forms/ListBox.h"
#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Cancel;
using tests::UserAtForm;

class RunfrmModifyList : public tests::ChoiceLists {
 protected:
  /// Shows the Stock page to a user who presses the exchange list's button and plays `part` in the editor; answers
  /// the combo as list and choice.
  std::string Edit(Part part, const std::string& chosen = "NYSE") {
    std::string after;
    Show(
        kStock,
        [&](UserAtForm& hands) {
          hands.Choose("ComSTKExchange", chosen);
          hands.Click("ButSTKExchange");
          after = form->ComboBoxToStr(form->ComSTKExchange) + " / " + form->ComSTKExchange.Text();
          Cancel(hands);
        },
        [&] { ExpectEditor(std::move(part)); });
    return after;
  }
};

TEST_F(RunfrmModifyList, TheTwelveButtonsOpenTheirListsUnderTheirTitles) {
  struct Row {
    int index;
    std::string button, title, firstEntry;
  };
  const std::vector<Row> rows = {
      {kStock, "ButSTKCurency", "Edit currencies list", "USD"},
      {kOption, "ButOPTCurency", "Edit currencies list", "USD"},
      {kFutures, "ButFUTCurency", "Edit currencies list", "USD"},
      {kIndex, "ButINDCurency", "Edit currencies list", "USD"},
      {kFutOpt, "ButFOPCurency", "Edit currencies list", "USD"},
      {kCash, "ButCASHCurency", "Edit currencies list", "USD"},
      {kStock, "ButSTKExchange", "Edit exchanges list for Stock", "SMART"},
      {kOption, "ButOPTExchange", "Edit exchanges list for Option", "SMART"},
      {kFutures, "ButFUTExchange", "Edit exchanges list for Futures", "GLOBEX"},
      {kIndex, "ButINDExchange", "Edit exchanges list for Index", "NASDAQ"},
      {kFutOpt, "ButFOPExchange", "Edit exchanges list for FutOpt", "SMART"},
      {kCash, "ButCASHExchange", "Edit exchanges list for Cash", "IDEAL"},
  };
  for (const auto& row : rows) {
    platform.logFiles.files.clear();
    Show(
        row.index,
        [&](UserAtForm& hands) {
          TraceRoutines();
          hands.Click(row.button);
          mGlobal::ErrorHandler->TracingEnabled(false);
          Cancel(hands);
        },
        [&] {
          ExpectEditor([&](UserAtForm& hands) {
            EXPECT_EQ(hands.form().Caption(), row.title);
            EXPECT_EQ(hands.Get<ListBox>("lstParametr").List(0), row.firstEntry);
            Cancel(hands);
          });
        });
    EXPECT_EQ(RoutinesEntered().at(0), "Pellora.frmAddTicker." + row.button + "_Click");
    EXPECT_EQ(RoutinesEntered().at(1), "Pellora.frmAddTicker.RunfrmModifyList");
  }
}

TEST_F(RunfrmModifyList, EachButtonEditsItsOwnList) {
  for (std::size_t index = 0; index < kSecurityTypes.size(); ++index) {
    const auto& type = kSecurityTypes[index];
    auto addNew = [](UserAtForm& hands) {
      hands.Type("txtInput", "NEW");
      hands.Click("ButAdd");
      hands.Click("ButSave");
    };
    Show(
        static_cast<int>(index),
        [&](UserAtForm& hands) {
          hands.Click(((*form).*type.exchangeButton.button).Name());
          hands.Click(((*form).*type.currencyButton.button).Name());
          EXPECT_EQ(((*form).*type.exchange).Items().back(), "NEW") << type.text;
          EXPECT_EQ(((*form).*type.currency).Items().back(), "NEW") << type.text;
          Cancel(hands);
        },
        [&] {
          ExpectEditor(addNew);
          ExpectEditor(addNew);
        });
  }
}

TEST_F(RunfrmModifyList, SavingKeepsTheChoiceThatIsStillThere) {
  EXPECT_EQ(Edit([](UserAtForm& hands) {
              hands.Choose("lstParametr", "SMART");
              hands.Click("ButDown");
              hands.Click("ButSave");
            }),
            "NYSE|SMART / NYSE");
}

TEST_F(RunfrmModifyList, SavingChoosesTheFirstWhenTheChoiceIsGone) {
  EXPECT_EQ(Edit([](UserAtForm& hands) {
              hands.Choose("lstParametr", "NYSE");
              hands.Click("ButDelete");
              hands.Type("txtInput", "ARCA");
              hands.Click("ButAdd");
              hands.Click("ButSave");
            }),
            "SMART|ARCA / SMART");
}

TEST_F(RunfrmModifyList, CancellingKeepsTheOldList) {
  EXPECT_EQ(Edit([](UserAtForm& hands) {
              hands.Choose("lstParametr", "NYSE");
              hands.Click("ButDelete");
              hands.Click("ButCancel");
            }),
            "SMART|NYSE / NYSE");
}

TEST_F(RunfrmModifyList, ClosingByTheTitleBarKeepsTheOldList) {
  EXPECT_EQ(Edit([](UserAtForm& hands) {
              hands.Choose("lstParametr", "NYSE");
              hands.Click("ButDelete");
              hands.CloseBox();
            }),
            "SMART|NYSE / NYSE");
}

TEST_F(RunfrmModifyList, DeletingEveryEntryAndSavingLeavesTheComboEmpty) {
  EXPECT_EQ(Edit([](UserAtForm& hands) {
              hands.Click("ButDelete");
              hands.Click("ButDelete");
              hands.Click("ButDelete");
              hands.Click("ButSave");
            }),
            " / ");
}

TEST_F(RunfrmModifyList, AnEditedListIsStoredOnlyWithTheNextInsert) {
  Edit([](UserAtForm& hands) {
    hands.Type("txtInput", "ARCA");
    hands.Click("ButAdd");
    hands.Click("ButSave");
  });
  EXPECT_TRUE(StoredChoices().empty());
  EXPECT_EQ(ShownIn("ComSTKExchange"), "SMART|NYSE / SMART");
}

TEST_F(RunfrmModifyList, AnEditedListIsStoredWithTheInsertThatFollows) {
  Show(
      kStock,
      [&](UserAtForm& hands) {
        hands.Type("txtSTKSymbol", "XYZ");
        hands.Click("ButSTKExchange");
        hands.Click("ButInsert");
      },
      [&] {
        ExpectEditor([](UserAtForm& hands) {
          hands.Type("txtInput", "ARCA");
          hands.Click("ButAdd");
          hands.Click("ButSave");
        });
      });
  EXPECT_EQ(StoredChoices().at("ComSTKExchange"), "SMART|NYSE|ARCA");
}

TEST_F(RunfrmModifyList, TheEditorsPlacementIsSavedWhicheverWayItIsLeft) {
  const std::vector<Part> ways = {[](UserAtForm& hands) { hands.Click("ButSave"); },
                                  [](UserAtForm& hands) { hands.Click("ButCancel"); },
                                  [](UserAtForm& hands) { hands.CloseBox(); }};
  int left = 100;
  for (const auto& leave : ways) {
    left += 10;
    Edit([&](UserAtForm& hands) {
      hands.form().SetPlacement({.normal = {left, 50, left + 500, 550}});
      leave(hands);
    });
    EXPECT_EQ(Stored("Windows settings\\frmModifyList")["NormalPosLeft"], std::to_string(left));
  }
}

TEST_F(RunfrmModifyList, AnEditedCurrencyListIsSavedWithTheInsertAndSeenOnEveryType) {
  Show(
      kOption,
      [](UserAtForm& hands) {
        hands.Type("txtOPTSymbol", "XYZ");
        hands.Click("ButOPTCurency");
        hands.Choose("ComOPTCurency", "CHF");
        hands.Click("ButInsert");
      },
      [&] {
        ExpectEditor([](UserAtForm& hands) {
          hands.Choose("lstParametr", "HKD");
          hands.Click("ButDelete");
          hands.Type("txtInput", "CHF");
          hands.Click("ButAdd");
          hands.Click("ButSave");
        });
      });
  EXPECT_EQ(StoredChoices().at("ComCurency"), "USD|EUR|GBP|AUD|BASE|CHF");
  const auto shown = Shown();
  for (const char* currency : tests::kCurrencyLists)
    EXPECT_EQ(shown.at(currency), "USD|EUR|GBP|AUD|BASE|CHF / CHF") << currency;
}

TEST_F(RunfrmModifyList, TheEditorsFirstOpeningIsCentred) {
  Edit([](UserAtForm& hands) {
    const auto normal = hands.form().GetPlacement()->normal;
    EXPECT_NEAR(normal.left, (1920 - normal.Width()) / 2.0, 1);
    EXPECT_NEAR(normal.top, (1080 - normal.Height()) / 2.0, 1);
    Cancel(hands);
  });
}

TEST_F(RunfrmModifyList, TheEditorOpensAgainWhereItWasLeft) {
  const Placement moved{.normal = {310, 60, 910, 660}};
  Edit([&](UserAtForm& hands) {
    hands.form().SetPlacement(moved);
    Cancel(hands);
  });
  Edit([&](UserAtForm& hands) {
    EXPECT_EQ(hands.form().GetPlacement()->normal, moved.normal);
    Cancel(hands);
  });
}

TEST_F(RunfrmModifyList, TheEditorIsGoneAfterwards) {
  Edit([](UserAtForm& hands) { hands.Click("ButSave"); });
  EXPECT_EQ(platform.toolkit.formPeers, 0);
}

}  // namespace
}  // namespace pellora
