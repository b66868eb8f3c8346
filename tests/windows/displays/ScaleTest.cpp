#include <algorithm>
#include <sstream>
#include <tuple>

#include "Dialogs.h"
#include "Pixels.h"
#include "forms/CommandButton.h"
#include "platform/windows/forms/Fonts.h"

namespace pellora::windows::test {
namespace {

constexpr int kScales[] = {96, 120, 144, 192};

std::string Text(const RECT& rect) {
  std::ostringstream text;
  text << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
  return text.str();
}

/// A window's place in its form's client area.
RECT PlaceOf(HWND child, HWND form) {
  RECT place{};
  ::GetWindowRect(child, &place);
  ::MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

bool Overlap(const RECT& one, const RECT& two) {
  RECT shared{};
  return ::IntersectRect(&shared, &one, &two) != FALSE;
}

std::wstring WithoutMarks(const std::wstring& text) {
  std::wstring shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && ++i == text.size()) break;
    shown += text[i];
  }
  return shown;
}

/// The pixels of a text of one line in a window's own font.
SIZE Measured(HWND window, const std::wstring& text) {
  const auto dc = ::GetDC(window);
  const auto before = ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE extent{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
  ::SelectObject(dc, before);
  ::ReleaseDC(window, dc);
  return extent;
}

/// What a kind of window needs beside and around its text, in dip: the mark of a box or option and the gap behind it,
/// the edges of a button, what stands before and behind the title of a frame.
SIZE RoomAround(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::CheckBox:
    case ControlKind::OptionButton: return {13 + 4, 0};
    case ControlKind::CommandButton: return {2 * 3, 2 * 3};
    case ControlKind::Frame: return {2 * 8, 0};
    default: return {0, 0};
  }
}

bool HasCaption(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::Label:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Frame: return true;
    case ControlKind::CommandButton: {
      return static_cast<const CommandButton&>(control).Picture() == ButtonPicture::None;
    }
    default: return false;
  }
}

std::string CaptionFault(const Control& control, int dpi) {
  const auto window = WindowOf(control);
  const auto text = WithoutMarks(TextOf(window));
  const auto need = Measured(window, text);
  const auto around = RoomAround(control);
  RECT client{};
  ::GetClientRect(window, &client);
  const auto fits =
      client.right >= need.cx + ::MulDiv(around.cx, dpi, 96) && client.bottom >= need.cy + ::MulDiv(around.cy, dpi, 96);
  return fits ? "" : control.Name() + " cuts off \"" + Narrow(text) + "\" in " + Text(client) + "\n";
}

std::string HeaderFaults(const Control& grid, int dpi) {
  std::string faults;
  const auto header = reinterpret_cast<HWND>(::SendMessageW(WindowOf(grid), LVM_GETHEADER, 0, 0));
  const auto count = static_cast<WPARAM>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  for (WPARAM i = 0; i < count; ++i) {
    wchar_t text[100] = L"";
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_WIDTH;
    item.pszText = text;
    item.cchTextMax = 100;
    ::SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
    if (!*text || item.cxy < Measured(header, text).cx + ::MulDiv(2 * 6, dpi, 96))
      faults += grid.Name() + " cuts off the header \"" + Narrow(text) + "\"\n";
  }
  return faults;
}

/// A line of text to type into, or to choose, is not cut off above or below.
std::string LineFault(const Control& control) {
  auto window = WindowOf(control);
  if (const auto inner = control.Kind() == ControlKind::ComboBox ? ::GetWindow(window, GW_CHILD) : nullptr)
    window = inner;
  RECT client{};
  ::GetClientRect(window, &client);
  return client.bottom >= Measured(window, L"Ag").cy ? "" : control.Name() + " is lower than its text\n";
}

std::string TextFaults(const Form& form, int dpi) {
  std::string faults;
  for (const auto* control : ShownControls(form)) {
    if (HasCaption(*control)) faults += CaptionFault(*control, dpi);
    if (control->Kind() == ControlKind::Grid) faults += HeaderFaults(*control, dpi);
    if (control->Kind() == ControlKind::TextBox || control->Kind() == ControlKind::ComboBox)
      faults += LineFault(*control);
  }
  return faults;
}

std::string PlaceFaults(const Form& form, HWND window) {
  std::string faults;
  RECT client{};
  ::GetClientRect(window, &client);
  const auto all = ShownControls(form);
  for (auto one = all.begin(); one != all.end(); ++one) {
    const auto place = PlaceOf(WindowOf(**one), window);
    if (place.right <= place.left || place.bottom <= place.top) faults += (*one)->Name() + " has no room\n";
    if (!Contains(client, place)) faults += (*one)->Name() + " leaves the client area: " + Text(place) + "\n";
    for (auto two = std::next(one); two != all.end(); ++two) {
      const auto other = PlaceOf(WindowOf(**two), window);
      const auto within = (*one)->Kind() == ControlKind::Frame && Contains(place, other);
      if (!within && Overlap(place, other))
        faults += (*one)->Name() + " " + Text(place) + " overlaps " + (*two)->Name() + " " + Text(other) + "\n";
    }
  }
  return faults;
}

/// The least the window lets itself be made by its edges.
void MakeLeast(HWND window) {
  if (!(::GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME)) return;
  ::SetWindowPos(window, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

class DialogAtEachScale : public EachDialog {};

TEST_P(DialogAtEachScale, HoldsItsTextsAndOverlapsNothing) {
  for (const int dpi : kScales) {
    desk().toolkit.ForceDpi(dpi);
    Show([&](Form& form, HWND window) {
      EXPECT_EQ(TextFaults(form, dpi) + PlaceFaults(form, window), "") << dpi << " dpi";
      ::UpdateWindow(window);
      KeepPicture(window, std::string(GetParam().name) + "-" + std::to_string(dpi));
      MakeLeast(window);
      EXPECT_EQ(TextFaults(form, dpi) + PlaceFaults(form, window), "") << dpi << " dpi, at its least";
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogAtEachScale, testing::ValuesIn(AllDialogs()), DialogName);

/// Fonts and places of a dialog's windows, its own size first.
std::string Layout(const Form& form, HWND window) {
  std::ostringstream text;
  RECT client{};
  ::GetClientRect(window, &client);
  text << "client " << Text(client) << "\n";
  for (const auto* control : ShownControls(form)) {
    const auto child = WindowOf(*control);
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(child, WM_GETFONT, 0, 0)), sizeof font, &font);
    text << control->Name() << " " << Text(PlaceOf(child, window)) << " font " << font.lfHeight << "\n";
  }
  return text.str();
}

/// As the system does when a window comes onto a display of another scale. Wine's displays have one.
void MoveToScale(HWND window, int dpi, RECT suggested) {
  ::SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

RECT OuterOf(HWND window) {
  RECT outer{};
  ::GetWindowRect(window, &outer);
  return outer;
}

class DialogOnAnotherDisplay : public EachDialog {
 protected:
  static constexpr int kScale = 144;
  static RECT Suggested(const RECT& outer) {
    return {outer.left, outer.top, outer.left + ::MulDiv(outer.right - outer.left, kScale, 96),
            outer.top + ::MulDiv(outer.bottom - outer.top, kScale, 96)};
  }
};

TEST_P(DialogOnAnotherDisplay, IsLaidOutForItsScale) {
  ShowOnce([](Form& form, HWND window) {
    const auto before = OuterOf(window);
    MoveToScale(window, kScale, Suggested(before));
    EXPECT_EQ(TextFaults(form, kScale) + PlaceFaults(form, window), "");
    EXPECT_GT((OuterOf(window).right - OuterOf(window).left) * 4, (before.right - before.left) * 5);
  });
}

TEST_P(DialogOnAnotherDisplay, HasTheFontsOfOneMadeThere) {
  ShowOnce([](Form& form, HWND window) {
    MoveToScale(window, kScale, Suggested(OuterOf(window)));
    for (const auto* control : ShownControls(form)) {
      LOGFONTW font{};
      ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(WindowOf(*control), WM_GETFONT, 0, 0)), sizeof font, &font);
      const auto* label = control->Kind() == ControlKind::Label ? static_cast<const Label*>(control) : nullptr;
      LOGFONTW wanted{};
      const Fonts fonts(kScale);
      ::GetObjectW(fonts.Get(label ? label->Style() : TextStyle::Normal), sizeof wanted, &wanted);
      EXPECT_EQ(font.lfHeight, wanted.lfHeight) << control->Name();
    }
  });
}

TEST_P(DialogOnAnotherDisplay, IsTheSameAgainWhenItComesBack) {
  ShowOnce([](Form& form, HWND window) {
    const auto outer = OuterOf(window);
    const auto before = Layout(form, window);
    MoveToScale(window, kScale, Suggested(outer));
    EXPECT_NE(Layout(form, window), before);
    MoveToScale(window, 96, outer);
    EXPECT_EQ(Layout(form, window), before);
    EXPECT_EQ(Text(OuterOf(window)), Text(outer));
  });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogOnAnotherDisplay, testing::ValuesIn(AllDialogs()), DialogName);

}  // namespace
}  // namespace pellora::windows::test
