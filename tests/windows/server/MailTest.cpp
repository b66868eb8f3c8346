#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "core/Error.h"
#include "core/Text.h"
#include "platform/windows/ole/Convert.h"
#include "platform/windows/server/WindowsPlatform.h"
#include "support/CErrorHandler.h"

namespace pellora::windows::test {
namespace {

constexpr wchar_t kMailKey[] = L"mailto\\shell\\open\\command";

template <class Condition>
bool Until(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(1);
  }
  return true;
}

std::filesystem::path Beside(const wchar_t* name) {
  wchar_t self[1024] = L"";
  GetModuleFileNameW(nullptr, self, 1024);
  return std::filesystem::path(self).replace_filename(name);
}

// A program for links of mail, until this object is gone; then the one before again.
class MailProgram {
 public:
  explicit MailProgram(const std::wstring& command) {
    DWORD size = sizeof m_before;
    m_had = RegGetValueW(HKEY_CLASSES_ROOT, kMailKey, nullptr, RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                         nullptr, m_before, &size) == ERROR_SUCCESS;
    Set(command);
    RegSetKeyValueW(HKEY_CLASSES_ROOT, L"mailto", L"URL Protocol", REG_SZ, L"", sizeof(wchar_t));
  }
  ~MailProgram() {
    if (m_had)
      Set(m_before);
    else
      RegDeleteTreeW(HKEY_CLASSES_ROOT, L"mailto");
  }
  MailProgram(const MailProgram&) = delete;
  MailProgram& operator=(const MailProgram&) = delete;

 private:
  static void Set(const std::wstring& command) {
    const auto bytes = static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t));
    ASSERT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, kMailKey, nullptr, REG_SZ, command.c_str(), bytes), ERROR_SUCCESS);
  }
  wchar_t m_before[1024] = L"";
  bool m_had = false;
};

struct Search {
  const wchar_t* text;
  HWND found;
};

BOOL CALLBACK HasText(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t text[80] = L"";
  InternalGetWindowText(window, text, 80);
  std::wstring plain(text);
  std::erase(plain, L'&');
  if (!IsWindowVisible(window) || plain != search.text) return TRUE;
  search.found = window;
  return FALSE;
}

HWND Child(HWND dialog, const wchar_t* caption) {
  Search search{caption, nullptr};
  EnumChildWindows(dialog, HasText, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// What the mouse gives the button itself: where the display believes the mouse to be is not certain while a window
// comes up.
void Click(HWND window) {
  const LPARAM inside = MAKELPARAM(5, 5);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, inside);
  PostMessageW(window, WM_LBUTTONUP, 0, inside);
}

std::string TextIn(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()))));
  return ole::Narrow(text);
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

// The user: waits for the error dialog, sends its text to support, and when the mail program has run, ignores the
// error.
struct Sending {
  std::string text;
  std::string mailed;

  void Play(DWORD thread, const std::filesystem::path& file) {
    Search search{L"Error", nullptr};
    Until([&] {
      EnumThreadWindows(thread, HasText, reinterpret_cast<LPARAM>(&search));
      return search.found && GetForegroundWindow() == search.found && Child(search.found, L"Send to Support");
    });
    text = TextIn(FindWindowExW(search.found, nullptr, L"EDIT", nullptr));
    Click(Child(search.found, L"Send to Support"));
    // While it is given its name the file cannot be opened.
    Until([&] { return !(mailed = ContentOf(file)).empty(); });
    Click(Child(search.found, L"Ignore"));
  }
};

std::string Escaped(std::string text) {
  const std::pair<const char*, const char*> pairs[] = {{"\r\n", "%0A"}, {"\t", "%09"}, {":", "%3A"}, {"/", "%2F"},
                                                       {"?", "%3F"},    {"=", "%3D"},  {"&", "%26"}};
  for (const auto& [plain, escape] : pairs) text = Replace(text, plain, escape);
  return text;
}

class Mail : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::remove(m_file);
    const WindowsPlatform platform(GetModuleHandleW(nullptr));
    const MailProgram program(L"\"" + Beside(L"mailing.exe").wstring() + L"\" \"" + m_file.wstring() + L"\" \"%1\"");
    CErrorHandler handler;
    handler.Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    handler.SupportMail("support@example.com");
    std::thread user([this, thread = GetCurrentThreadId()] { sending.Play(thread, m_file); });
    answer = handler.HandleError("Mail.SetUp", Error(1004, "", "50% of a\tb\r\nhttp://x/y?q=1&r=100%25 c"), 7);
    user.join();
  }
  void TearDown() override { std::filesystem::remove(m_file); }

  Sending sending;
  ErrorAction answer = ErrorAction::Abort;

 private:
  std::filesystem::path m_file = Beside(L"mailed.txt");
};

TEST_F(Mail, TheMailProgramGetsTheWholeLinkAsItsOnlyArgument) {
  const std::string rule(20, '-');
  EXPECT_EQ(sending.mailed, "mailto:support@example.com?subject=An%20error%20occurred%20in%20Pellora&body=%0A%0A" +
                                rule + "%0A" + Escaped(sending.text) + "%0A" + rule + "\n");
}

TEST_F(Mail, WhatTheErrorTellsIsInTheLinkCharacterForCharacter) {
  EXPECT_NE(sending.mailed.find("(50% of a%09b%0Ahttp%3A%2F%2Fx%2Fy%3Fq%3D1%26r%3D100%25 c)%0A"), std::string::npos)
      << sending.mailed;
}

TEST_F(Mail, TheDialogStaysOpenForItsAnswer) { EXPECT_EQ(answer, ErrorAction::Ignore); }

}  // namespace
}  // namespace pellora::windows::test
