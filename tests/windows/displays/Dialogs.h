#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "OnDisplay.h"
#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "contract/frmModifyList.h"
#include "platform/headless/Headless.h"
#include "platform/windows/forms/WindowsToolkit.h"
#include "project/frmNewProject.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"
#include "support/frmErrorMessage.h"
#include "support/mGlobal.h"
#include "tape/frmAddRibbon.h"
#include "tests/tape/WorkbookBuilder.h"
#include "workbook/Host.h"

namespace pellora::windows::test {

/// Native windows over services in memory, and a workbook with two instruments and a tape.
class Desk : public TapeOwner {
 public:
  Desk() {
    Install();
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    mGlobal::AppSettings = std::make_shared<CAppSettings>();
    mGlobal::AppSettings->Init("CORVANE", "Vantix");
    pellora::test::WorkbookBuilder(pellora::test::Book(application)).Instruments(2).Tapes(1);
  }

  /// Makes its services those in force.
  void Install() { mGlobal::InstallPlatform(&m_platform); }

  DispatchPtr ExcelApplication() override { return application; }

  WindowsToolkit toolkit{::GetModuleHandleW(nullptr), 2};
  workbook::Host workbook;
  DispatchPtr application = workbook.Application();

 private:
  headless::HeadlessPlatform m_services;
  Platform m_platform{
      toolkit, m_services.registry, m_services.shell, m_services.clock, m_services.eventLog, m_services.logFiles, {}};
};

/// One of the library's dialogs: how it is made, and what a user may bring it to show. Each state is tried on the
/// dialog as the one before has left it.
struct Dialog {
  const char* name;
  std::function<std::unique_ptr<Form>(Desk&)> make;
  std::vector<std::function<void(Form&)>> states;
};

inline void PrintTo(const Dialog& dialog, std::ostream* out) { *out << dialog.name; }

inline std::vector<std::function<void(Form&)>> EachType() {
  std::vector<std::function<void(Form&)>> states;
  for (int type = 0; type < static_cast<int>(kSecurityTypes.size()); ++type)
    states.push_back([type](Form& form) { static_cast<frmAddTicker&>(form).ComType.ListIndex(type); });
  return states;
}

inline std::function<void(Form&)> Choose(OptionButton frmAddRibbon::*option, CheckBox frmAddRibbon::*size = nullptr) {
  return [option, size](Form& form) {
    auto& tape = static_cast<frmAddRibbon&>(form);
    (tape.*option).Value(true);
    if (size) (tape.*size).Value(1);
  };
}

inline std::vector<Dialog> AllDialogs() {
  const auto asItComes = [](Form&) {};
  return {
      {"NewProject", [](Desk& desk) { return std::make_unique<frmNewProject>(desk.toolkit); }, {asItComes}},
      {"AddTicker",
       [](Desk& desk) {
         auto form = std::make_unique<frmAddTicker>(desk.toolkit);
         form->frmAppSettings(mGlobal::AppSettings);
         return form;
       },
       EachType()},
      {"ModifyList",
       [](Desk& desk) {
         auto form = std::make_unique<frmModifyList>(desk.toolkit);
         form->Caption("Edit exchanges list for Futures");
         form->frmAppSettings(mGlobal::AppSettings);
         form->InpList(
             "SMART|NYSE|A name that is longer than the list is wide, as somebody may paste it from elsewhere");
         return form;
       },
       {asItComes}},
      {"AddRibbon",
       [](Desk& desk) {
         auto form = std::make_unique<frmAddRibbon>(desk.toolkit);
         form->Owner(&desk);
         form->AppSettings(mGlobal::AppSettings);
         return form;
       },
       {asItComes, Choose(&frmAddRibbon::OptLastPrice, &frmAddRibbon::chkLastSize),
        Choose(&frmAddRibbon::OptAskPrice, &frmAddRibbon::chkAskSize), Choose(&frmAddRibbon::OptVolume)}},
      {"ErrorMessage",
       [](Desk& desk) {
         auto form = std::make_unique<frmErrorMessage>(desk.toolkit);
         form->Load();
         form->ErrorMessage("Error 1004 (Application-defined or object-defined error)\r\nin a routine at line 7");
         form->SupportMail("support@example.com");
         return form;
       },
       {asItComes}},
  };
}

/// A test that is run for each dialog.
class EachDialog : public testing::TestWithParam<Dialog> {
 protected:
  EachDialog() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~EachDialog() override {
    m_desk.reset();
    ::CoUninitialize();
  }

  Desk& desk() {
    if (!m_desk) m_desk = std::make_unique<Desk>();
    return *m_desk;
  }

  /// Shows the dialog and lets `look` see each of its states.
  void Show(const std::function<void(Form&, HWND)>& look) { Show(GetParam().states.size(), look); }
  /// The first state only.
  void ShowOnce(const std::function<void(Form&, HWND)>& look) { Show(1, look); }

 private:
  void Show(std::size_t states, const std::function<void(Form&, HWND)>& look) {
    const auto form = GetParam().make(desk());
    std::size_t looks = 0;
    OnDisplay::Show(*form, [&](HWND window) {
      for (; looks < states; ++looks) {
        GetParam().states[looks](*form);
        HandlePosted();
        look(*form, window);
      }
    });
    EXPECT_EQ(looks, states);
    form->Unload();
  }

  std::unique_ptr<Desk> m_desk;
};

inline std::string DialogName(const testing::TestParamInfo<Dialog>& info) { return info.param.name; }

}  // namespace pellora::windows::test
