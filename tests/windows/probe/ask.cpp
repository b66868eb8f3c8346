// ask "QUESTION" FILE: asks for one line of text in a small window and writes it to the file; writes
// an empty one when the user cancels. What a workbook's macro does with the host's input box, for a host without one.

#include <windows.h>

#include <fstream>
#include <string>

namespace {

constexpr int kText = 100;

std::wstring g_question;
std::wstring g_answer;

HWND Add(HWND dialog, const wchar_t* kind, const std::wstring& text, DWORD style, int id, RECT place) {
  MapDialogRect(dialog, &place);
  const HWND control = CreateWindowExW(std::wstring_view(kind) == L"EDIT" ? WS_EX_CLIENTEDGE : 0, kind, text.c_str(),
                                       WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right, place.bottom,
                                       dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0)), FALSE);
  return control;
}

void Fill(HWND dialog) {
  SetWindowTextW(dialog, L"Pick a range");
  Add(dialog, L"STATIC", g_question, 0, 0, {7, 7, 190, 10});
  Add(dialog, L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, kText, {7, 20, 186, 13});
  Add(dialog, L"BUTTON", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, {87, 42, 50, 14});
  Add(dialog, L"BUTTON", L"Cancel", WS_TABSTOP, IDCANCEL, {143, 42, 50, 14});
  SetFocus(GetDlgItem(dialog, kText));
}

INT_PTR CALLBACK Handle(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  if (message == WM_INITDIALOG) {
    Fill(dialog);
    return FALSE;
  }
  if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
  wchar_t text[1024]{};
  GetDlgItemTextW(dialog, kText, text, 1024);
  g_answer = text;
  return EndDialog(dialog, LOWORD(wParam));
}

// In the code page in which a script reads files.
std::string Narrow(const std::wstring& text) {
  std::string result(text.size() * 4, '\0');
  const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), result.data(),
                                       static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(size));
  return result;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count != 3) return 2;
  g_question = words[1];
  // A dialog template without controls, with the display's font: they are made when it is filled.
  struct {
    DLGTEMPLATE dialog{
        DS_SETFONT | DS_MODALFRAME | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, 200, 63};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD caption = 0;
    WORD points = 9;
    wchar_t font[13] = L"MS Shell Dlg";
  } blank;
  SetProcessDPIAware();
  if (DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &blank.dialog, nullptr, Handle, 0) != IDOK) g_answer.clear();
  // Whoever waits for the file must not see half of it.
  const std::wstring beside = std::wstring(words[2]) + L".new";
  std::ofstream(beside.c_str(), std::ios::binary) << Narrow(g_answer);
  return MoveFileExW(beside.c_str(), words[2], MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
