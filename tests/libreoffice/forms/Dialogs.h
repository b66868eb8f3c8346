#pragma once

#include <functional>
#include <memory>

#include "contract/frmAddTicker.h"
#include "contract/frmModifyList.h"
#include "platform/headless/Headless.h"
#include "project/frmNewProject.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"
#include "support/frmErrorMessage.h"
#include "support/mGlobal.h"
#include "tape/frmAddRibbon.h"
#include "tests/libreoffice/forms/Hands.h"
#include "tests/tape/WorkbookBuilder.h"
#include "workbook/Host.h"

namespace pellora::libreoffice {

/// A workbook with instruments, and the ticker tape dialog's owner.
class TapeDesk : public TapeOwner {
 public:
  TapeDesk() { test::WorkbookBuilder(test::Book(host.Application())).Instruments(20); }
  DispatchPtr ExcelApplication() override { return host.Application(); }

 private:
  workbook::Host host;
};

/// The library's own dialogs, with everything around them that they need.
class DialogTest : public OfficeFormTest {
 protected:
  DialogTest() {
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    mGlobal::AppSettings = std::make_shared<CAppSettings>();
    mGlobal::AppSettings->Init("CORVANE", "Vantix");
  }
  ~DialogTest() override {
    mGlobal::ErrorHandler = nullptr;
    mGlobal::AppSettings = nullptr;
  }

  /// Loads each dialog in turn and does something with it; the contract dialog once for every kind of contract.
  void WithEachDialog(const std::function<void(Form&)>& action) {
    const auto with = [&](Form& form) {
      form.Load();
      action(form);
      form.Unload();
    };
    TapeDesk desk;
    frmAddRibbon tape(toolkit);
    tape.Owner(&desk);
    tape.AppSettings(mGlobal::AppSettings);
    with(tape);
    for (std::int16_t type = 0; type < 6; ++type) {
      frmAddTicker contract(toolkit);
      contract.frmAppSettings(mGlobal::AppSettings);
      contract.ComTypeListIndex(type);
      with(contract);
    }
    frmModifyList list(toolkit);
    list.InpList("SMART;NYSE;NASDAQ;GLOBEX");
    with(list);
    frmNewProject project(toolkit);
    with(project);
    frmErrorMessage error(toolkit);
    with(error);
  }

  headless::HeadlessPlatform platform;
};

}  // namespace pellora::libreoffice
