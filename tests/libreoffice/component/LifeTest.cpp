#include <com/sun/star/script/BasicErrorException.hpp>
#include <cppuhelper/weakref.hxx>
#include <thread>

#include "tests/libreoffice/component/MacroTest.h"

namespace pellora::test {
namespace {

using headless::UserAtForm;

class Life : public MacroTest {};

INSTANTIATE_TEST_SUITE_P(Basic, Life, testing::Values(Basic::Vba), BasicName);

// The number with which a typed call fails, 0 for none.
std::int32_t NumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const com::sun::star::script::BasicErrorException& error) {
    return error.ErrorCode;
  }
  return 0;
}

TEST_P(Life, AnObjectThatIsReleasedWhileItsDialogIsOpenFinishesItsCall) {
  ::Pellora::XcPellora* const last = m_library.get();
  AtForm("frmNewProject", [&](UserAtForm& user) {
    m_library.clear();
    user.Click("chkVolume");
    user.Click("ButCreateProject");
  });
  sal_Int16 f[10] = {};
  EXPECT_TRUE(last->CreateNewProject(f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8], f[9]));
}

TEST_P(Life, ACallDuringADialogIsRefusedAndBringsTheDialogUp) {
  std::int32_t number = 0;
  AtForm("frmNewProject", [&](UserAtForm& user) {
    number = NumberOf([&] { m_library->ShowRefEditInterface(); });
    user.Click("ButCancel");
  });
  EXPECT_EQ(Answer(std::string("T = library.CreateNewProject(") + kTenZeros + ")"), "False");
  EXPECT_EQ(number, -2147221404);
  EXPECT_EQ(platform.toolkit.broughtToFront, std::vector<std::string>{"frmNewProject"});
}

TEST_P(Life, ACallRefusedDuringADialogIsNoFailureOfTheDialogsOwn) {
  AtForm("frmNewProject", [&](UserAtForm& user) {
    NumberOf([&] { m_library->ShowRefEditInterface(); });
    EXPECT_EQ(m_library->getErrNumber(), -2147221404);
    user.Click("ButCancel");
  });
  EXPECT_EQ(Answer(std::string("T = library.CreateNewProject(") + kTenZeros + ") & library.ErrNumber"), "False0");
}

TEST_P(Life, ACallOfAnotherThreadDuringADialogIsRefused) {
  std::int32_t number = 0;
  AtForm("frmNewProject", [&](UserAtForm& user) {
    std::thread([&] { number = NumberOf([&] { m_library->UnloadfrmMaster(); }); }).join();
    user.Click("ButCancel");
  });
  EXPECT_EQ(Answer(std::string("T = library.CreateNewProject(") + kTenZeros + ")"), "False");
  EXPECT_EQ(number, 5);
}

TEST_P(Life, TwoObjectsHaveTheirOwnLastFailure) {
  const rtl::Reference<libreoffice::UnoPellora> second(new libreoffice::UnoPellora(Office(), nullptr));
  EXPECT_EQ(Failure("library.ExcelApplication = 5").substr(0, 3), "13|");
  EXPECT_EQ(second->getErrNumber(), 0);
}

TEST_P(Life, AnObjectGoesWithItsLastReference) {
  com::sun::star::uno::WeakReference<com::sun::star::uno::XInterface> seen;
  {
    rtl::Reference<libreoffice::UnoPellora> second(new libreoffice::UnoPellora(Office(), nullptr));
    seen =
        com::sun::star::uno::Reference<com::sun::star::uno::XInterface>(static_cast<cppu::OWeakObject*>(second.get()));
    EXPECT_TRUE(com::sun::star::uno::Reference<com::sun::star::uno::XInterface>(seen).is());
  }
  EXPECT_FALSE(com::sun::star::uno::Reference<com::sun::star::uno::XInterface>(seen).is());
}

}  // namespace
}  // namespace pellora::test
