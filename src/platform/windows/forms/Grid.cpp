#include "platform/windows/forms/Grid.h"

#include <uxtheme.h>

#include <algorithm>

#include "forms/NaturalSize.h"
#include "platform/windows/forms/Form.h"
#include "platform/windows/forms/WideText.h"

namespace pellora::windows {
namespace {

constexpr UINT kCurrent = LVIS_SELECTED | LVIS_FOCUSED;
/// Room above and below the text of a row together, as the layout counts it.
constexpr int kRowPaddingDip = 6;

/// Three parts of one colour and one of another.
COLORREF Mixed(COLORREF most, COLORREF some) {
  const auto mix = [](int a, int b) { return (3 * a + b) / 4; };
  return RGB(mix(GetRValue(most), GetRValue(some)), mix(GetGValue(most), GetGValue(some)),
             mix(GetBValue(most), GetBValue(some)));
}

}  // namespace

GridPeer::GridPeer(WindowsFormPeer& form, pellora::Grid& grid) : PeerOf(form, grid) {
  Make(WC_LISTVIEWW,
       LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_SHAREIMAGELISTS |
           WS_TABSTOP,
       WS_EX_CLIENTEDGE);
  constexpr auto looks = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, looks, looks);
  ::SetWindowTheme(Window(), L"Explorer", nullptr);
  // The module of the list keeps the colours that were the system's when it was last told of new ones.
  ColoursChanged();
  AddColumns();
  m_ready = true;
  for (const auto aspect : {Aspect::Columns, Aspect::Rows, Aspect::CurrentRow}) Changed(aspect);
}

void GridPeer::AddColumns() {
  for (int i = 0; i < Self().Cols(); ++i) {
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_SUBITEM;
    column.iSubItem = i;
    Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridPeer::FollowHeaders() {
  for (int i = 0; i < Self().Cols(); ++i) {
    auto header = Wide(Self().ColumnAt(i).header);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = header.data();
    Send(LVM_SETCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridPeer::FollowWidths() {
  int total = 0;
  for (int i = 0; i < Self().Cols(); ++i) total += NaturalColumnWidth(Self(), i, m_form.GetFonts());
  RECT client{};
  ::GetClientRect(Window(), &client);
  // Rounded up from the left, so that the columns end exactly where the room does.
  const int room = std::max(total, static_cast<int>(client.right));
  int before = 0;
  int placed = 0;
  for (int i = 0; i < Self().Cols(); ++i) {
    before += NaturalColumnWidth(Self(), i, m_form.GetFonts());
    const auto edge = total > 0 ? ::MulDiv(before, room, total) : 0;
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), edge - placed);
    placed = edge;
  }
}

void GridPeer::FollowRows() {
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(Self().Rows() - 1), LVSICF_NOSCROLL);
  ::InvalidateRect(Window(), nullptr, FALSE);
}

void GridPeer::FollowCurrentRow() {
  const auto item = Self().Row() - 1;
  LVITEMW state{};
  state.stateMask = kCurrent;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
  if (item < 0) return;
  state.state = kCurrent;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&state));
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
}

void GridPeer::Placed() {
  const Silence silence(*this);
  if (!m_dragged) FollowWidths();
}

void GridPeer::FontChanged() {
  PeerOf::FontChanged();
  m_dragged = false;
  SetRowHeight();
  if (m_ready) Placed();
}

void GridPeer::ColoursChanged() {
  PeerOf::ColoursChanged();
  if (!Window()) return;
  // A list keeps the ground it was made with, and Wine's never follows.
  const auto ground = static_cast<LPARAM>(::GetSysColor(COLOR_WINDOW));
  Send(LVM_SETBKCOLOR, 0, ground);
  Send(LVM_SETTEXTBKCOLOR, 0, ground);
  Send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(::GetSysColor(COLOR_WINDOWTEXT)));
}

void GridPeer::SetRowHeight() {
  // A list in report view is as high a row as its small images, so it gets empty ones.
  const auto height =
      m_form.GetFonts().Measure("X", TextStyle::Normal).height + m_form.GetFonts().Scale(kRowPaddingDip);
  ImageListOwner images(::ImageList_Create(1, height, ILC_COLOR, 0, 0));
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images.get()));
  m_rowHeight = std::move(images);
}

void GridPeer::Update(Aspect aspect) {
  switch (aspect) {
    case Aspect::Columns:
      FollowHeaders();
      m_dragged = false;
      FollowWidths();
      break;
    case Aspect::Rows:
      FollowRows();
      FollowCurrentRow();
      break;
    case Aspect::Cells: ::InvalidateRect(Window(), nullptr, FALSE); break;
    case Aspect::CurrentRow: FollowCurrentRow(); break;
    default: break;
  }
}

void GridPeer::GiveText(const NMLVDISPINFOW& request) const {
  const auto& item = request.item;
  if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) return;
  const auto row = item.iItem + 1;
  const auto text = row < Self().Rows() ? Wide(Self().Text(row, item.iSubItem)) : std::wstring();
  const auto length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
  *std::copy_n(text.begin(), length, item.pszText) = L'\0';
}

LRESULT GridPeer::FindRow(const NMLVFINDITEMW& request) const {
  const auto rows = Self().Rows() - 1;
  if (!(request.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !request.lvfi.psz || rows == 0) return -1;
  const std::wstring wanted(request.lvfi.psz);
  const auto length = static_cast<int>(wanted.size());
  for (int i = 0; i < rows; ++i) {
    const auto item = (std::max(request.iStart, 0) + i) % rows;
    const auto text = Wide(Self().Text(item + 1, 0));
    if (text.size() >= wanted.size() &&
        ::CompareStringOrdinal(text.data(), length, wanted.data(), length, TRUE) == CSTR_EQUAL)
      return item;
  }
  return -1;
}

int GridPeer::ColumnUnderPointer() const {
  if (::GetKeyState(VK_LBUTTON) >= 0) return Self().Col();
  const auto position = ::GetMessagePos();
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  ::ScreenToClient(Window(), &hit.pt);
  Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit.iItem >= 0 && hit.iSubItem >= 0 && hit.iSubItem < Self().Cols() ? hit.iSubItem : Self().Col();
}

void GridPeer::ItemChanged(const NMLISTVIEW& change) {
  const auto becomesCurrent = (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
  if (becomesCurrent && change.iItem >= 0 && change.iItem + 1 < Self().Rows())
    Self().PeerRow(change.iItem + 1, ColumnUnderPointer());
}

void GridPeer::Clicked(const NMITEMACTIVATE& click) {
  // One row is always current: a click beside the rows deselects in the native list only.
  if (click.iItem < 0) return Changed(Aspect::CurrentRow);
  if (click.iItem + 1 < Self().Rows() && click.iSubItem >= 0 && click.iSubItem < Self().Cols())
    Self().PeerRow(click.iItem + 1, click.iSubItem);
}

LRESULT GridPeer::Paint(NMLVCUSTOMDRAW& step) const {
  if (step.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const auto isCurrent = static_cast<int>(step.nmcd.dwItemSpec) == Self().Row() - 1;
  if (step.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || !isCurrent || ::GetFocus() == Window()) return CDRF_DODEFAULT;
  // The current row decides what the rest of a form shows, so it stays easy to see while the keyboard is elsewhere;
  // natively it would hardly differ from the others.
  step.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
  step.clrTextBk = Mixed(::GetSysColor(COLOR_WINDOW), ::GetSysColor(COLOR_HIGHLIGHT));
  step.clrText = ::GetSysColor(COLOR_WINDOWTEXT);
  return CDRF_DODEFAULT;
}

LRESULT GridPeer::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW: GiveText(reinterpret_cast<const NMLVDISPINFOW&>(header)); break;
    case NM_CUSTOMDRAW:
      // The header draws itself the same way.
      if (header.hwndFrom != Window()) break;
      return Paint(const_cast<NMLVCUSTOMDRAW&>(reinterpret_cast<const NMLVCUSTOMDRAW&>(header)));
    case LVN_ODFINDITEMW: return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ITEMCHANGED:
      if (!IsSilent()) ItemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
      break;
    case NM_CLICK:
    case NM_RCLICK: Clicked(reinterpret_cast<const NMITEMACTIVATE&>(header)); break;
    case HDN_BEGINTRACKW: m_dragged = true; break;
    case NM_SETFOCUS: FocusReported(); break;
    default: break;
  }
  return 0;
}

}  // namespace pellora::windows
