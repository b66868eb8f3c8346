// Tells a player outside what is on the screen: a console program that reads commands from its input, one a line, and
// answers each with lines of tab-separated fields and a closing line ".". It only looks; keys and clicks are the
// player's, through the display, as a person's would be.
//
//   windows          every visible top-level window followed by its children, parents first:
//                    depth, handle, process, class, id, left, top, right, bottom, flags, style, value, text
//                    flags: v visible, e enabled, f has the focus, a is the active window (on a top-level window)
//                    value: a button's check state, the selection "from-to" of a box, the index chosen in a list
//   table HANDLE     a list view's rows from its header on; the first field of a row is "*" for a selected one
//   items HANDLE     a combo box's or list box's items
//   quit
//
// Texts are UTF-8 with backslash, tab, carriage return and line feed escaped as in C.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr UINT kPatience = 500;  // milliseconds for one answer of a window that may be busy

LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kPatience, &answer)) return 0;
  return static_cast<LRESULT>(answer);
}

std::string Utf8(const std::wstring& text) {
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), size, nullptr, nullptr);
  return result;
}

std::string Escaped(const std::wstring& text) {
  std::string result;
  for (const char c : Utf8(text)) {
    switch (c) {
      case '\\': result += "\\\\"; break;
      case '\t': result += "\\t"; break;
      case '\r': result += "\\r"; break;
      case '\n': result += "\\n"; break;
      default: result += c;
    }
  }
  return result;
}

// The window's own text, also of another process's control.
std::wstring TextOf(HWND window) {
  const auto length = static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      Ask(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[128];
  return {name, static_cast<std::size_t>(GetClassNameW(window, name, 128))};
}

bool Is(HWND window, const wchar_t* className) { return _wcsicmp(ClassOf(window).c_str(), className) == 0; }

std::string ValueOf(HWND window) {
  if (Is(window, L"Button")) return std::to_string(Ask(window, BM_GETCHECK));
  if (Is(window, L"ComboBox")) return std::to_string(Ask(window, CB_GETCURSEL));
  if (Is(window, L"ListBox")) return std::to_string(Ask(window, LB_GETCURSEL));
  if (!Is(window, L"Edit")) return "";
  // The packed answer crosses processes; the one by pointers need not.
  const auto selection = static_cast<DWORD>(Ask(window, EM_GETSEL));
  return std::to_string(LOWORD(selection)) + "-" + std::to_string(HIWORD(selection));
}

std::string FlagsOf(HWND window, const GUITHREADINFO& thread) {
  std::string flags;
  if (IsWindowVisible(window)) flags += 'v';
  if (IsWindowEnabled(window)) flags += 'e';
  if (window == thread.hwndFocus) flags += 'f';
  if (window == thread.hwndActive && window == GetForegroundWindow()) flags += 'a';
  return flags;
}

void PrintWindow(HWND window, int depth) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  DWORD process = 0;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, &process), &thread);
  RECT area{};
  GetWindowRect(window, &area);
  std::cout << depth << '\t' << reinterpret_cast<ULONG_PTR>(window) << '\t' << process << '\t'
            << Escaped(ClassOf(window)) << '\t' << GetDlgCtrlID(window) << '\t' << area.left << '\t' << area.top << '\t'
            << area.right << '\t' << area.bottom << '\t' << FlagsOf(window, thread) << '\t'
            << static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) << '\t' << ValueOf(window) << '\t'
            << Escaped(TextOf(window)) << '\n';
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    PrintWindow(child, depth + 1);
}

// A function and no lambda: 32-bit g++ does not turn those into callbacks of the system.
BOOL CALLBACK CollectVisible(HWND window, LPARAM list) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

void PrintWindows() {
  std::vector<HWND> windows;
  EnumWindows(CollectVisible, reinterpret_cast<LPARAM>(&windows));
  for (const HWND window : windows) PrintWindow(window, 0);
}

struct CloseProcess {
  void operator()(void* process) const { CloseHandle(process); }
};

// A piece of another process's memory, through which a list view hands out its texts.
class RemoteText {
 public:
  explicit RemoteText(HWND window) : m_window(window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    m_process.reset(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    if (m_process) m_memory = VirtualAllocEx(m_process.get(), nullptr, kSize, MEM_COMMIT, PAGE_READWRITE);
  }
  ~RemoteText() {
    if (m_memory) VirtualFreeEx(m_process.get(), m_memory, 0, MEM_RELEASE);
  }
  RemoteText(const RemoteText&) = delete;
  RemoteText& operator=(const RemoteText&) = delete;

  std::wstring Cell(int row, int column) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = RemoteBuffer(sizeof item);
    item.cchTextMax = kCharacters;
    return Read(item, m_window, LVM_GETITEMTEXTW, row);
  }

  std::wstring Caption(int column) {
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = RemoteBuffer(sizeof item);
    item.cchTextMax = kCharacters;
    return Read(item, reinterpret_cast<HWND>(Ask(m_window, LVM_GETHEADER)), HDM_GETITEMW, column);
  }

 private:
  static constexpr int kCharacters = 512;
  static constexpr std::size_t kSize = 4096;

  wchar_t* RemoteBuffer(std::size_t after) { return reinterpret_cast<wchar_t*>(static_cast<char*>(m_memory) + after); }

  template <typename Item>
  std::wstring Read(Item& item, HWND window, UINT message, int index) {
    wchar_t text[kCharacters]{};
    if (!m_memory || !WriteProcessMemory(m_process.get(), m_memory, &item, sizeof item, nullptr)) return {};
    Ask(window, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(m_memory));
    // A virtual list view may answer with a pointer of its own instead of filling the buffer.
    ReadProcessMemory(m_process.get(), m_memory, &item, sizeof item, nullptr);
    ReadProcessMemory(m_process.get(), item.pszText, text, sizeof text - sizeof(wchar_t), nullptr);
    return text;
  }

  HWND m_window;
  std::unique_ptr<void, CloseProcess> m_process;
  void* m_memory = nullptr;
};

void PrintTable(HWND window) {
  RemoteText text(window);
  const auto header = reinterpret_cast<HWND>(Ask(window, LVM_GETHEADER));
  const int columns = static_cast<int>(Ask(header, HDM_GETITEMCOUNT));
  const int rows = static_cast<int>(Ask(window, LVM_GETITEMCOUNT));
  std::cout << "#";
  for (int column = 0; column < columns; ++column) std::cout << '\t' << Escaped(text.Caption(column));
  std::cout << '\n';
  for (int row = 0; row < rows; ++row) {
    const bool selected = Ask(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    std::cout << (selected ? "*" : "");
    for (int column = 0; column < columns; ++column) std::cout << '\t' << Escaped(text.Cell(row, column));
    std::cout << '\n';
  }
}

void PrintItems(HWND window) {
  const bool combo = Is(window, L"ComboBox");
  const LRESULT count = Ask(window, combo ? CB_GETCOUNT : LB_GETCOUNT);
  for (LRESULT index = 0; index < count; ++index) {
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = Ask(window, combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, item);
    if (length < 0) continue;
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    Ask(window, combo ? CB_GETLBTEXT : LB_GETTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    std::cout << Escaped(text) << '\n';
  }
}

bool Answer(const std::string& line) {
  std::istringstream words(line);
  std::string command;
  ULONG_PTR handle = 0;
  words >> command >> handle;
  const auto window = reinterpret_cast<HWND>(handle);
  if (command == "quit") return false;
  if (command == "windows") PrintWindows();
  if (command == "table") PrintTable(window);
  if (command == "items") PrintItems(window);
  std::cout << "." << std::endl;
  return true;
}

}  // namespace

int main() {
  SetProcessDPIAware();
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!Answer(line)) break;
  }
}
