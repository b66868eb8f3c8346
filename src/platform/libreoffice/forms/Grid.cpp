#include "platform/libreoffice/forms/Grid.h"

#include <algorithm>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/KeyModifier.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XStyleSettings.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>
#include <com/sun/star/awt/XUnitConversion.hpp>
#include <com/sun/star/awt/grid/DefaultGridColumnModel.hpp>
#include <com/sun/star/style/VerticalAlignment.hpp>
#include <com/sun/star/util/MeasureUnit.hpp>
#include <com/sun/star/view/SelectionType.hpp>
#include <vector>

#include "core/Text.h"
#include "forms/NaturalSize.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

/// Room above and below a text together, as the layout counts it.
constexpr int kRowPaddingDip = 6;
constexpr int kHeaderPaddingDip = 10;
constexpr int kScrollBarDip = 17;
/// Pixels, both sides together.
constexpr int kBorder = 4;

/// Three parts of one colour and one of another.
sal_Int32 Mixed(sal_Int32 most, sal_Int32 some) {
  sal_Int32 mixed = 0;
  for (const int shift : {16, 8, 0}) mixed |= (3 * (most >> shift & 0xFF) + (some >> shift & 0xFF)) / 4 << shift;
  return mixed;
}

}  // namespace

GridPeer::GridPeer(UnoFormPeer& form, pellora::Grid& grid) : PeerOf(form, grid), m_data(new GridData(grid)) {
  Make("Grid", awt::WindowAttribute::BORDER);
  m_table = m_window.As<awt::grid::XGridControl>();
  m_selection = m_window.As<awt::grid::XGridRowSelection>();
  m_told = m_window.As<awt::grid::XGridDataListener>();
  WhileThere([&] {
    SetLooks();
    MakeColumns();
    m_selection->addSelectionListener(Listener());
  });
  for (const auto aspect : {Aspect::Rows, Aspect::CurrentRow}) Changed(aspect);
}

GridPeer::~GridPeer() {
  m_data->Detach();
  Listener()->Detach();
  // The window goes with that of the form.
  m_window.detach();
}

sal_Int32 GridPeer::InLogicalWidth(int pixels) const {
  const auto units = m_window.As<awt::XUnitConversion>();
  return units->convertSizeToLogic({pixels * 100, 100}, com::sun::star::util::MeasureUnit::APPFONT).Width / 100;
}

sal_Int32 GridPeer::InLogicalHeight(int pixels) const {
  const auto units = m_window.As<awt::XUnitConversion>();
  return (units->convertSizeToLogic({100, pixels * 100}, com::sun::star::util::MeasureUnit::APPFONT).Height + 50) / 100;
}

void GridPeer::SetLooks() {
  const auto& fonts = m_form.GetFonts();
  const auto line = fonts.Measure("X", TextStyle::Normal).height;
  m_window.Set("SelectionModel", uno::Any(com::sun::star::view::SelectionType_SINGLE));
  m_window.Set("ShowRowHeader", uno::Any(false));
  m_window.Set("ShowColumnHeader", uno::Any(true));
  m_window.Set("HScroll", uno::Any(false));
  m_window.Set("VScroll", uno::Any(false));
  m_window.Set("RowHeight", uno::Any(InLogicalHeight(line + fonts.Scale(kRowPaddingDip))));
  m_window.Set("ColumnHeaderHeight", uno::Any(InLogicalHeight(line + fonts.Scale(kHeaderPaddingDip))));
  m_window.Set("VerticalAlign", uno::Any(com::sun::star::style::VerticalAlignment_MIDDLE));
  // The current row decides what the rest of a form shows, so it stays easy to see while the keyboard is elsewhere.
  const auto styles = m_window.As<awt::XStyleSettingsSupplier>()->getStyleSettings();
  const auto field = styles->getFieldColor();
  const auto highlight = styles->getHighlightColor();
  m_window.Set("ActiveSelectionBackgroundColor", uno::Any(highlight));
  m_window.Set("ActiveSelectionTextColor", uno::Any(styles->getHighlightTextColor()));
  m_window.Set("InactiveSelectionBackgroundColor", uno::Any(Mixed(field, highlight)));
  m_window.Set("InactiveSelectionTextColor", uno::Any(styles->getFieldTextColor()));
  m_window.Set("BackgroundColor", uno::Any(field));
  m_window.Set("TextColor", uno::Any(styles->getFieldTextColor()));
}

void GridPeer::MakeColumns() {
  m_columns = awt::grid::DefaultGridColumnModel::create(m_form.GetContext());
  for (int i = 0; i < Self().Cols(); ++i) {
    const auto column = m_columns->createColumn();
    column->setDataColumnIndex(i);
    column->setFlexibility(0);
    m_columns->addColumn(column);
  }
  FollowColumns();
  m_window.Set("ColumnModel", uno::Any(m_columns));
  m_window.Set("GridDataModel", uno::Any(uno::Reference<awt::grid::XGridDataModel>(m_data.get())));
}

void GridPeer::FollowColumns() {
  const auto& fonts = m_form.GetFonts();
  int total = 0;
  for (int i = 0; i < Self().Cols(); ++i) total += NaturalColumnWidth(Self(), i, fonts);
  // Counted from the left in the toolkit's own coarse unit, so that the columns end where the room does.
  const auto room = InLogicalWidth(std::max(total, RoomForColumns()));
  int before = 0;
  sal_Int32 placed = 0;
  for (int i = 0; i < Self().Cols(); ++i) {
    before += NaturalColumnWidth(Self(), i, fonts);
    const auto edge = total > 0 ? static_cast<sal_Int32>(sal_Int64{before} * room / total) : 0;
    const auto column = m_columns->getColumn(i);
    column->setTitle(Wide(Self().ColumnAt(i).header));
    column->setColumnWidth(edge - placed);
    placed = edge;
  }
}

int GridPeer::RoomForColumns() const {
  const auto& fonts = m_form.GetFonts();
  const auto scrolls = Self().Rows() - 1 > RowsOnView();
  return Self().Bounds().Width() - kBorder - (scrolls ? fonts.Scale(kScrollBarDip) : 0);
}

void GridPeer::Placed() {
  const Silence silence(*this);
  if (!m_window || std::exchange(m_room, RoomForColumns()) == RoomForColumns()) return;
  WhileThere([&] { FollowColumns(); });
}

void GridPeer::FollowRows() {
  const auto before = m_data->Rows();
  const auto rows = static_cast<sal_Int32>(Self().Rows()) - 1;
  if (before == rows) return;
  m_data->Rows(rows);
  awt::grid::GridDataEvent event;
  event.Source = static_cast<cppu::OWeakObject*>(m_data.get());
  event.FirstColumn = 0;
  event.LastColumn = Self().Cols() - 1;
  event.FirstRow = std::min(before, rows);
  event.LastRow = std::max(before, rows) - 1;
  if (rows > before)
    m_told->rowsInserted(event);
  else
    m_told->rowsRemoved(event);
}

void GridPeer::FollowCells() {
  if (m_data->Rows() == 0) return;
  awt::grid::GridDataEvent event;
  event.Source = static_cast<cppu::OWeakObject*>(m_data.get());
  event.FirstColumn = 0;
  event.LastColumn = Self().Cols() - 1;
  event.FirstRow = 0;
  event.LastRow = m_data->Rows() - 1;
  m_told->dataChanged(event);
}

void GridPeer::FollowCurrentRow() {
  const auto row = static_cast<sal_Int32>(Self().Row()) - 1;
  const auto selected = m_selection->getSelectedRows();
  if (selected.getLength() == 1 && selected[0] == row) return;
  m_selection->deselectAllRows();
  if (m_data->Rows() == 0 || row >= m_data->Rows()) return;
  // A table with rows needs a cell to be at: taking the keyboard without one, it crashes the program where assistive
  // programs are served.
  m_table->goToCell(Self().Col(), std::max<sal_Int32>(row, 0));
  if (row >= 0)
    m_selection->selectRow(row);
  else
    m_selection->deselectAllRows();
}

void GridPeer::Update(Aspect aspect) {
  switch (aspect) {
    case Aspect::Columns: return FollowColumns();
    case Aspect::Rows:
      FollowRows();
      Placed();
      FollowCells();
      return FollowCurrentRow();
    case Aspect::Cells: return FollowCells();
    case Aspect::CurrentRow: return FollowCurrentRow();
    default: return;
  }
}

void GridPeer::OnReport(Happening happening) {
  if (happening != Happening::Choice) return;
  const auto selected = m_selection->getSelectedRows();
  // One row is always current: a click beside the rows deselects in the table only.
  if (selected.getLength() == 0) return Changed(Aspect::CurrentRow);
  const auto row = static_cast<int>(selected[0]) + 1;
  const auto column = static_cast<int>(m_table->getCurrentColumn());
  if (row < Self().Rows()) Self().PeerRow(row, std::clamp(column, 0, Self().Cols() - 1));
}

int GridPeer::RowsOnView() const {
  const auto& fonts = m_form.GetFonts();
  const auto line = fonts.Measure("X", TextStyle::Normal).height;
  const auto rows = Self().Bounds().Height() - kBorder - line - fonts.Scale(kHeaderPaddingDip);
  return std::max(1, rows / std::max(1, line + fonts.Scale(kRowPaddingDip)));
}

int GridPeer::NextRowBeginningWith(sal_Unicode letter) const {
  const auto wanted = Narrow(rtl::OUString(letter));
  const auto rows = Self().Rows() - 1;
  for (int i = 0; i < rows; ++i) {
    const auto row = (std::max(Self().Row(), 0) + i) % rows + 1;
    const auto text = Wide(Self().Text(row, 0));
    if (!text.isEmpty() && EqualNoCase(Narrow(text.copy(0, 1)), wanted)) return row;
  }
  return Self().Row();
}

int GridPeer::RowFor(const awt::KeyEvent& key) const {
  switch (key.KeyCode) {
    case awt::Key::UP: return Self().Row() - 1;
    case awt::Key::DOWN: return Self().Row() + 1;
    case awt::Key::PAGEUP: return Self().Row() - RowsOnView();
    case awt::Key::PAGEDOWN: return Self().Row() + RowsOnView();
    case awt::Key::HOME: return 1;
    case awt::Key::END: return Self().Rows() - 1;
    default: return key.KeyChar > u' ' && key.KeyChar != 0x7F ? NextRowBeginningWith(key.KeyChar) : 0;
  }
}

bool GridPeer::Act(const awt::KeyEvent& key) {
  const auto command = (key.Modifiers & (awt::KeyModifier::MOD1 | awt::KeyModifier::MOD2)) != 0;
  const auto moves = key.KeyCode == awt::Key::UP || RowFor(key) != 0;
  if (command || !moves || Self().Rows() < 2) return false;
  Self().PeerRow(std::clamp(RowFor(key), 1, Self().Rows() - 1), Self().Col());
  if (m_window) Changed(Aspect::CurrentRow);
  return true;
}

}  // namespace pellora::libreoffice
