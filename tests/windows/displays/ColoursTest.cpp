#include "Dialogs.h"
#include "Pixels.h"
// After the platform's header, which it builds on.
#include <uxtheme.h>

#include <array>
#include <iomanip>
#include <sstream>

#include "forms/CommandButton.h"
#include "forms/TextBox.h"

namespace pellora::windows::test {
namespace {

struct SystemColour {
  int index;
  COLORREF colour;
};

/// Light on dark, each ground and each text of a colour of its own, so that one taken for another shows.
constexpr std::array kDark = {
    SystemColour{COLOR_BTNFACE, RGB(32, 32, 48)},      SystemColour{COLOR_BTNTEXT, RGB(240, 240, 220)},
    SystemColour{COLOR_WINDOW, RGB(8, 16, 8)},         SystemColour{COLOR_WINDOWTEXT, RGB(255, 255, 160)},
    SystemColour{COLOR_HIGHLIGHT, RGB(0, 40, 110)},    SystemColour{COLOR_HIGHLIGHTTEXT, RGB(255, 250, 250)},
    SystemColour{COLOR_GRAYTEXT, RGB(150, 160, 150)},  SystemColour{COLOR_BTNHIGHLIGHT, RGB(110, 110, 120)},
    SystemColour{COLOR_BTNSHADOW, RGB(70, 70, 80)},    SystemColour{COLOR_3DLIGHT, RGB(60, 60, 70)},
    SystemColour{COLOR_3DDKSHADOW, RGB(16, 16, 20)},   SystemColour{COLOR_WINDOWFRAME, RGB(200, 200, 200)},
    SystemColour{COLOR_INFOBK, RGB(40, 40, 0)},        SystemColour{COLOR_INFOTEXT, RGB(255, 255, 200)},
    SystemColour{COLOR_ACTIVECAPTION, RGB(60, 0, 60)}, SystemColour{COLOR_CAPTIONTEXT, RGB(255, 230, 255)},
};

/// The system in those colours; as it was again at the end.
class DarkColours {
 public:
  DarkColours() {
    for (const auto& dark : kDark) {
      m_indexes.push_back(dark.index);
      m_before.push_back(::GetSysColor(dark.index));
      m_dark.push_back(dark.colour);
    }
    ::SetSysColors(static_cast<int>(m_indexes.size()), m_indexes.data(), m_dark.data());
  }
  ~DarkColours() { ::SetSysColors(static_cast<int>(m_indexes.size()), m_indexes.data(), m_before.data()); }
  DarkColours(const DarkColours&) = delete;
  DarkColours& operator=(const DarkColours&) = delete;

 private:
  std::vector<int> m_indexes;
  std::vector<COLORREF> m_before, m_dark;
};

std::string Text(COLORREF colour) {
  std::ostringstream text;
  text << "(" << int{GetRValue(colour)} << "," << int{GetGValue(colour)} << "," << int{GetBValue(colour)} << ")";
  return text.str();
}

/// The system's colour for the ground of a control.
int GroundOf(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextBox: {
      const auto changes = control.Usable() && !static_cast<const TextBox&>(control).ReadOnly();
      return changes ? COLOR_WINDOW : COLOR_BTNFACE;
    }
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
    case ControlKind::Grid: return COLOR_WINDOW;
    default: return COLOR_BTNFACE;
  }
}

/// Nothing to read: boxes and lists without a text, and what cannot be used, which is grey on purpose.
bool ShowsText(const Control& control) {
  if (!control.Usable()) return false;
  if (control.Kind() == ControlKind::TextBox) return !static_cast<const TextBox&>(control).Text().empty();
  return control.Kind() != ControlKind::Frame;
}

/// Enough for texts of usual size, by the rules for accessible screens.
constexpr double kLegible = 4.5;

HWND Looked(const Control& control) {
  // A combo of a text and a button is the text.
  const auto window = WindowOf(control);
  const auto inner = control.Kind() == ControlKind::ComboBox ? ::GetWindow(window, GW_CHILD) : nullptr;
  return inner ? inner : window;
}

std::string ColourFault(const Control& control, HWND form, const Pixels& all) {
  RECT area{};
  const auto window = Looked(control);
  ::GetClientRect(window, &area);
  ::MapWindowPoints(window, form, reinterpret_cast<POINT*>(&area), 2);
  const auto pixels = all.Part(area);
  const auto wanted = ::GetSysColor(GroundOf(control));
  std::ostringstream fault;
  if (pixels.Ground() != wanted)
    fault << control.Name() << " stands on " << Text(pixels.Ground()) << ", not " << Text(wanted) << "\n";
  if (ShowsText(control) && pixels.BestContrast() < kLegible)
    fault << control.Name() << " has a contrast of " << std::setprecision(3) << pixels.BestContrast() << "\n";
  return fault.str();
}

// A named static function: the 32-bit compiler makes no callback of that calling convention from a lambda.
BOOL CALLBACK DropTheme(HWND window, LPARAM) {
  ::SetWindowTheme(window, L" ", L" ");
  return TRUE;
}

/// Paints a window without its theme, whose colours are its own; the system's theme for high contrast has those of the
/// system.
void Paint(HWND window) {
  ::EnumChildWindows(window, &DropTheme, 0);
  ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

std::string Faults(const Form& form, HWND window) {
  Paint(window);
  const auto all = PixelsOf(window);
  std::string faults;
  if (const auto corner = all.At(1, 1); corner != ::GetSysColor(COLOR_BTNFACE))
    faults += "the dialog stands on " + Text(corner) + "\n";
  for (const auto* control : ShownControls(form))
    if (control->Kind() != ControlKind::Frame) faults += ColourFault(*control, window, all);
  return faults;
}

/// A row of a grid in the grid's client area.
RECT RowOf(HWND grid, int item) {
  RECT row{LVIR_BOUNDS, 0, 0, 0};
  ::SendMessageW(grid, LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&row));
  return row;
}

class DarkDialog : public EachDialog {};

TEST_P(DarkDialog, HasTheSystemsGroundsAndLegibleTexts) {
  const DarkColours dark;
  Show([](Form& form, HWND window) {
    EXPECT_EQ(Faults(form, window), "");
    KeepPicture(window, std::string(GetParam().name) + "-dark");
  });
}

TEST_P(DarkDialog, LooksTheSameWhenItIsUpWhileTheColoursChange) {
  ShowOnce([](Form& form, HWND window) {
    const DarkColours dark;
    EXPECT_EQ(Faults(form, window), "");
  });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DarkDialog, testing::ValuesIn(AllDialogs()), DialogName);

class DarkGrid : public testing::Test {
 protected:
  /// The row that is current, as it is painted while the keyboard is at `focused`.
  void Show(const std::function<Control&(frmAddRibbon&)>& focused, const std::function<void(const Pixels&)>& look) {
    const DarkColours dark;
    Desk desk;
    frmAddRibbon form(desk.toolkit);
    form.Owner(&desk);
    form.AppSettings(mGlobal::AppSettings);
    OnDisplay::Show(form, [&](HWND window) {
      focused(form).SetFocus();
      Paint(window);
      const auto grid = WindowOf(form.VSFExcel);
      look(Pixels(grid, RowOf(grid, form.VSFExcel.Row() - 1)));
    });
    form.Unload();
  }
};

TEST_F(DarkGrid, ShowsItsCurrentRowLegiblyWhileTheKeyboardIsElsewhere) {
  Show([](frmAddRibbon& form) -> Control& { return form.txtAddress; },
       [](const Pixels& row) {
         EXPECT_GE(row.BestContrast(), kLegible);
         EXPECT_NE(row.Ground(), ::GetSysColor(COLOR_WINDOW)) << "not to be told from other rows";
       });
}

TEST_F(DarkGrid, ShowsItsCurrentRowLegiblyWithTheKeyboard) {
  Show([](frmAddRibbon& form) -> Control& { return form.VSFExcel; },
       [](const Pixels& row) {
         EXPECT_GE(row.BestContrast(), kLegible);
         EXPECT_NE(row.Ground(), ::GetSysColor(COLOR_WINDOW)) << "not to be told from other rows";
       });
}

}  // namespace
}  // namespace pellora::windows::test
