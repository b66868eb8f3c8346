// Shows the dialogs and takes their pictures, to be looked at: run with PELLORA_PICTURES set to a folder.

#include <cstdlib>

#include "tests/libreoffice/forms/Dialogs.h"

namespace pellora::libreoffice {
namespace {

class Gallery : public DialogTest {
 protected:
  void SetUp() override {
    const auto* folder = std::getenv("PELLORA_PICTURES");
    if (!folder) GTEST_SKIP() << "no PELLORA_PICTURES";
    m_folder = folder;
  }

  void TakePicture(Form& form, const std::string& name) {
    Show(form, [&](Hands& hands) {
      EXPECT_TRUE(hands.FormIsUp());
      std::this_thread::sleep_for(std::chrono::milliseconds(500));
      RunProgram("import -window root " + m_folder + "/" + name + ".png");
      OnMainThread([&] { form.Hide(); });
    });
  }

  /// At its usual size and, when it can be resized, at a large one.
  void Picture(Form& form, const std::string& name) {
    TakePicture(form, name);
    if (form.BorderStyle() != BorderStyle::Sizable) return;
    auto place = form.GetPlacement().value_or(Placement{});
    place.normal = {60, 40, 60 + 1300, 40 + 900};
    form.SetPlacement(place);
    TakePicture(form, name + "-large");
  }

 private:
  std::string m_folder;
};

TEST_F(Gallery, NewProject) {
  frmNewProject form(toolkit);
  Picture(form, "new-project");
}

TEST_F(Gallery, AddTicker) {
  for (const std::int16_t type : {0, 1, 2, 4}) {
    frmAddTicker form(toolkit);
    form.frmAppSettings(mGlobal::AppSettings);
    form.ComTypeListIndex(type);
    TakePicture(form, "add-ticker-" + std::to_string(type));
  }
}

TEST_F(Gallery, ModifyList) {
  frmModifyList form(toolkit);
  form.InpList("SMART;NYSE;NASDAQ;GLOBEX");
  Picture(form, "modify-list");
}

TEST_F(Gallery, ErrorMessage) {
  frmErrorMessage form(toolkit);
  form.Load();
  form.SupportMail("support@example.com");
  form.ErrorMessage(
      "Error 1004 in Pellora.frmAddRibbon.LoadTable at line 40, (Application-defined or object-defined error)\r\n");
  Picture(form, "error-message");
}

TEST_F(Gallery, AddRibbon) {
  TapeDesk desk;
  frmAddRibbon form(toolkit);
  form.Owner(&desk);
  form.AppSettings(mGlobal::AppSettings);
  Picture(form, "add-ribbon");
}

}  // namespace
}  // namespace pellora::libreoffice
