#include "support/frmErrorMessage.h"

#include <gtest/gtest.h>

#include "platform/headless/Headless.h"

namespace pellora {
namespace {

using headless::UserAtForm;
using Part = std::function<void(UserAtForm&)>;

class ErrorDialog : public ::testing::Test {
 protected:
  ErrorDialog() { platform.platform.library = {.title = "Vantix Pro", .major = 1, .minor = 2, .revision = 15}; }
  ~ErrorDialog() override { EXPECT_EQ(platform.user().Verify(), ""); }

  /// Shows the dialog as the error handler does, to a user who plays a part; answers the result.
  std::string Show(Part part) {
    platform.user().ExpectForm("frmErrorMessage", std::move(part));
    frmErrorMessage dialog(platform.toolkit);
    dialog.Load();
    dialog.ErrorMessage(message);
    dialog.SupportMail(address);
    dialog.Show();
    auto result = dialog.Tag();
    dialog.Unload();
    return result;
  }
  /// The link that Send to Support opens.
  std::string SentLink() {
    Show([](UserAtForm& user) {
      user.Click("btnSend");
      user.Click("btnAbort");
    });
    const auto call = platform.shell.calls.empty() ? std::string("nothing") : platform.shell.calls.back();
    return call;
  }

  headless::HeadlessPlatform platform;
  std::string message = "text";
  std::string address;
};

TEST_F(ErrorDialog, ButtonsAnswerAndClose) {
  const std::pair<const char*, const char*> rows[] = {
      {"btnAbort", "ABORT"}, {"btnRetry", "RETRY"}, {"btnIgnore", "IGNORE"}};
  for (const auto& [button, result] : rows) EXPECT_EQ(Show([&](UserAtForm& user) { user.Click(button); }), result);
}

TEST_F(ErrorDialog, CloseBoxYieldsAbort) {
  EXPECT_EQ(Show([](UserAtForm& user) { user.CloseBox(); }), "ABORT");
}

TEST_F(ErrorDialog, EscapeYieldsAbort) {
  EXPECT_EQ(Show([](UserAtForm& user) {
              user.Get<CommandButton>("btnRetry").SetFocus();
              user.PressEscape();
            }),
            "ABORT");
}

TEST_F(ErrorDialog, StrayEnterYieldsAbort) {
  EXPECT_EQ(Show([](UserAtForm& user) {
              EXPECT_EQ(user.FocusedName(), "btnAbort");
              user.PressEnter();
            }),
            "ABORT");
}

TEST_F(ErrorDialog, EnterInTheTextYieldsAbort) {
  EXPECT_EQ(Show([](UserAtForm& user) {
              user.Get<TextBox>("txtErrorMessage").SetFocus();
              user.PressEnter();
            }),
            "ABORT");
}

TEST_F(ErrorDialog, ButtonsHaveAccessKeys) {
  const std::pair<char, const char*> rows[] = {{'A', "ABORT"}, {'R', "RETRY"}, {'I', "IGNORE"}};
  for (const auto& [key, result] : rows)
    EXPECT_EQ(Show([letter = key](UserAtForm& user) { user.PressAccessKey(letter); }), result);
}

TEST_F(ErrorDialog, SendHasAnAccessKey) {
  address = "help@example.com";
  Show([](UserAtForm& user) {
    user.PressAccessKey('S');
    user.Click("btnAbort");
  });
  EXPECT_EQ(platform.shell.calls.size(), 1u);
}

TEST_F(ErrorDialog, CaptionsAreAsTheUserKnowsThem) {
  Show([](UserAtForm& user) {
    EXPECT_EQ(user.form().Caption(), "Error");
    EXPECT_EQ(user.Get<CommandButton>("btnAbort").Caption(), "Abort");
    EXPECT_EQ(user.Get<CommandButton>("btnRetry").Caption(), "Retry");
    EXPECT_EQ(user.Get<CommandButton>("btnIgnore").Caption(), "Ignore");
    EXPECT_EQ(user.Get<CommandButton>("btnSend").Caption(), "Send to Support");
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, PanelsHoldTheirControls) {
  Show([](UserAtForm& user) {
    EXPECT_TRUE(user.Get<Panel>("elaTitle").FindControl("elaTitleCaption"));
    EXPECT_TRUE(user.Get<Panel>("elaInfo").FindControl("txtErrorMessage"));
    for (const auto* button : {"btnAbort", "btnRetry", "btnIgnore", "btnSend"})
      EXPECT_TRUE(user.Get<Panel>("elaButtons").FindControl(button));
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, TitleNamesTheLibrary) {
  Show([](UserAtForm& user) {
    const auto& title = user.Get<Label>("elaTitleCaption");
    EXPECT_EQ(title.Caption(), "An error occurred in Vantix Pro");
    EXPECT_EQ(title.Style(), TextStyle::Heading);
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, TextIsFollowedByTheVersion) {
  message = "one\r\ntwo";
  Show([](UserAtForm& user) {
    EXPECT_EQ(user.Get<TextBox>("txtErrorMessage").Text(), "one\r\ntwo\r\nVersion: 1.2.15");
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, ErrorMessageReadsTheShownText) {
  frmErrorMessage dialog(platform.toolkit);
  dialog.ErrorMessage("x");
  EXPECT_EQ(dialog.ErrorMessage(), "x\r\nVersion: 1.2.15");
}

TEST_F(ErrorDialog, TextIsReadOnlyWithSeveralLines) {
  Show([](UserAtForm& user) {
    EXPECT_TRUE(user.Get<TextBox>("txtErrorMessage").ReadOnly());
    EXPECT_TRUE(user.Get<TextBox>("txtErrorMessage").MultiLine());
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, SendIsDisabledWithoutAnAddress) {
  Show([](UserAtForm& user) {
    EXPECT_FALSE(user.Get<CommandButton>("btnSend").Enabled());
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, SendIsEnabledWithAnyAddress) {
  address = "not an address";
  Show([](UserAtForm& user) {
    EXPECT_TRUE(user.Get<CommandButton>("btnSend").Enabled());
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, SendIsEnabledByAnAddressSetBeforeLoading) {
  frmErrorMessage dialog(platform.toolkit);
  dialog.SupportMail("a");
  dialog.Load();
  EXPECT_TRUE(static_cast<CommandButton*>(dialog.FindControl("btnSend"))->Enabled());
}

TEST_F(ErrorDialog, LoadingBeepsOnce) {
  Show([](UserAtForm& user) { user.Click("btnAbort"); });
  EXPECT_EQ(platform.user().Beeps(), 1);
}

TEST_F(ErrorDialog, LoadingComesToTheForegroundOnce) {
  Show([](UserAtForm& user) { user.Click("btnAbort"); });
  EXPECT_EQ(platform.toolkit.broughtToFront, std::vector<std::string>{"frmErrorMessage"});
}

TEST_F(ErrorDialog, LoadingPresetsAbort) {
  frmErrorMessage dialog(platform.toolkit);
  EXPECT_EQ(dialog.Tag(), "");
  dialog.Load();
  EXPECT_EQ(dialog.Tag(), "ABORT");
}

TEST_F(ErrorDialog, SendOpensAMailToSupportAndStaysOpen) {
  address = "help@example.com";
  EXPECT_EQ(SentLink(),
            "open|mailto:help@example.com?subject=An%20error%20occurred%20in%20Vantix%20Pro"
            "&body=%0A%0A--------------------%0Atext%0AVersion%3A 1.2.15%0A--------------------||");
}

TEST_F(ErrorDialog, SentTextHasItsSpecialCharactersEscaped) {
  address = "a";
  message = "a\r\nb\tc:d/e?f=g&h i";
  const auto link = SentLink();
  EXPECT_NE(link.find("%0Aa%0Ab%09c%3Ad%2Fe%3Ff%3Dg%26h i%0AVersion"), std::string::npos) << link;
}

TEST_F(ErrorDialog, SentTextKeepsAPercentSignOnPurpose) {
  address = "a";
  message = "100% of %20";
  const auto link = SentLink();
  EXPECT_NE(link.find("%0A100% of %20%0AVersion"), std::string::npos) << link;
}

TEST_F(ErrorDialog, SentTextKeepsEveryOtherCharacter) {
  address = "a";
  message = "#+;@\"<>\n\r\xC3\xA9";
  const auto link = SentLink();
  EXPECT_NE(link.find("%0A#+;@\"<>\n\r\xC3\xA9%0AVersion"), std::string::npos) << link;
}

TEST_F(ErrorDialog, MailProgramThatDoesNotStartIsPassedOver) {
  address = "a";
  for (const std::int32_t result : {8, 31}) {
    platform.shell.result = result;
    EXPECT_EQ(Show([](UserAtForm& user) {
                user.Click("btnSend");
                user.Click("btnIgnore");
              }),
              "IGNORE");
  }
  EXPECT_EQ(platform.shell.calls.size(), 2u);
}

TEST_F(ErrorDialog, EnlargingItEnlargesTheText) {
  Show([](UserAtForm& user) {
    EXPECT_EQ(user.form().BorderStyle(), BorderStyle::Sizable);
    const auto before = user.Get<TextBox>("txtErrorMessage").Bounds();
    const auto button = user.Get<CommandButton>("btnAbort").Bounds();
    user.Resize({1400, 900});
    const auto after = user.Get<TextBox>("txtErrorMessage").Bounds();
    EXPECT_GT(after.Width(), before.Width());
    EXPECT_GT(after.Height(), before.Height());
    EXPECT_EQ(user.Get<CommandButton>("btnAbort").Bounds().Height(), button.Height());
    user.Click("btnAbort");
  });
}

TEST_F(ErrorDialog, TabGoesThroughTheTextAndTheButtons) {
  address = "a";
  Show([](UserAtForm& user) {
    std::vector<std::string> order;
    for (int i = 0; i < 5; ++i) {
      order.push_back(user.FocusedName());
      user.PressTab();
    }
    EXPECT_EQ(order, (std::vector<std::string>{"btnAbort", "btnRetry", "btnIgnore", "btnSend", "txtErrorMessage"}));
    user.Click("btnAbort");
  });
}

}  // namespace
}  // namespace pellora
