#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "OpenRibbon.h"
#include "Witness.h"
#include "WorkbookBuilder.h"
#include "core/Text.h"
#include "excel/Door.h"
#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"
#include "tests/hosts/OnHost.h"
#include "tests/hosts/Picture.h"

namespace pellora::test {

/// A desk with a new workbook of the program's host, a witness between it and the dialog, the shared services and the
/// dialog, not loaded yet. Whoever leaves it checks that exactly the expected dialogs and messages appeared.
class Desk : public OnHost, public TapeOwner {
 protected:
  Desk() {
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    mGlobal::AppSettings = std::make_shared<CAppSettings>();
    mGlobal::AppSettings->Init("CORVANE", "Vantix");
    NewDialog();
  }

  ~Desk() override {
    excel::ObserveCalls({});
    dialog.reset();
    mGlobal::ErrorHandler.reset();
    mGlobal::AppSettings.reset();
  }

  void TearDown() override { EXPECT_EQ(platform.user().Verify(), ""); }

  DispatchPtr ExcelApplication() override { return application; }

  void NewDialog() {
    dialog = std::make_unique<OpenRibbon>(platform.toolkit);
    dialog->Owner(this);
    dialog->AppSettings(mGlobal::AppSettings);
  }

  /// Starts the workbook; instruments and tapes are added to what is answered.
  WorkbookBuilder Workbook(const std::vector<std::string>& fields = kAllFields) {
    return WorkbookBuilder(book, fields);
  }

  /// Another workbook, new, in place of the open one.
  void Renew() {
    book = Book(TheHost().Fresh());
    application = witness.Wrap(book.application());
    witness.Forget();
  }

  /// Shows the dialog and lets the user do `part`, which hides it at the end by Cancel unless it is hidden already.
  void Use(const std::function<void(headless::UserAtForm&)>& part) {
    platform.user().ExpectForm("frmAddRibbon", [part](headless::UserAtForm& user) {
      part(user);
      if (user.form().Shown()) user.Click("ButCancel");
    });
    dialog->Show();
  }

  std::string ActiveSheet() { return book.ActiveSheet(); }
  bool ScreenUpdating() { return book.ScreenUpdating(); }
  Variant Value(std::string_view sheet, std::string_view address) { return book.Value(sheet, address); }
  std::string Formula(std::string_view sheet, std::string_view address) { return book.Formula(sheet, address); }

  /// From now on the witness counts.
  void Watch() { witness.Forget(); }

  /// The routines that `act` enters, in order, each by its own name.
  std::vector<std::string> Entered(const std::function<void()>& act) {
    constexpr std::string_view mark = "Entered routine: Pellora.frmAddRibbon.";
    auto& log = platform.logFiles.files["Tracing Log.txt"];
    log.clear();
    Handler().TracingEnabled(true);
    act();
    Handler().TracingEnabled(false);
    std::vector<std::string> names;
    for (const auto& line : Split(log, "\r\n"))
      if (const auto at = line.find(mark); at != std::string::npos) names.push_back(line.substr(at + mark.size()));
    return names;
  }

  /// The routines that error dialogs named, in order.
  std::vector<std::string> ReportedRoutines() {
    std::vector<std::string> names;
    for (const auto& text : platform.user().ErrorTexts()) {
      const auto from = text.find("in Pellora.frmAddRibbon.");
      const auto end = text.find(" at line", from);
      names.push_back(from == std::string::npos ? text : text.substr(from + 24, end - from - 24));
    }
    return names;
  }

  CErrorHandler& Handler() { return *mGlobal::ErrorHandler; }

  headless::HeadlessPlatform platform;
  Witness witness;
  /// What the dialog is handed: the host's application object as the witness passes it on.
  DispatchPtr application = witness.Wrap(book.application());
  std::unique_ptr<OpenRibbon> dialog;
};

}  // namespace pellora::test
