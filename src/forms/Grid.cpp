#include "forms/Grid.h"

#include <algorithm>
#include <utility>

#include "core/Error.h"
#include "forms/Refusals.h"

namespace pellora {
namespace {

const std::string kNoText;

}  // namespace

Grid::Grid(Container& parent, std::string_view name, std::vector<Column> columns)
    : Control(&parent, ControlKind::Grid, name), m_columns(std::move(columns)) {}

const Grid::Column& Grid::ColumnAt(int column) const {
  if (column < 0 || column >= Cols()) throw Error(errors::InvalidPropertyIndex);
  return m_columns[static_cast<std::size_t>(column)];
}

void Grid::ColumnWidth(int column, int dip) {
  if (dip < 0) throw Error(errors::InvalidPropertyValue);
  if (ColumnAt(column).width == dip) return;
  m_columns[static_cast<std::size_t>(column)].width = dip;
  TellUnlessFrozen(Aspect::Columns);
}

int Grid::Rows() const { return static_cast<int>(m_rows.size()) + 1; }

void Grid::Rows(int count) {
  if (count < 1) throw Error(errors::InvalidPropertyValue);
  if (count == Rows()) return;
  const auto oldRow = m_row;
  m_rows.resize(static_cast<std::size_t>(count - 1));
  m_row = std::min(m_row, count - 1);
  TellUnlessFrozen(Aspect::Rows);
  if (m_row == oldRow) return;
  TellUnlessFrozen(Aspect::CurrentRow);
  Raise(AfterSelChange, oldRow, m_col, m_row, m_col);
}

const std::string& Grid::Text(int row, int column) const {
  CheckCell(row, column);
  if (row == 0) return m_columns[static_cast<std::size_t>(column)].header;
  const auto& texts = m_rows[static_cast<std::size_t>(row - 1)].texts;
  return static_cast<std::size_t>(column) < texts.size() ? texts[static_cast<std::size_t>(column)] : kNoText;
}

void Grid::Text(int row, int column, std::string_view text) {
  if (Text(row, column) == text) return;
  if (row == 0) {
    m_columns[static_cast<std::size_t>(column)].header = text;
    TellUnlessFrozen(Aspect::Columns);
    return;
  }
  // A row gets room for its texts with the first of them: rows cost next to nothing until they are filled.
  auto& texts = m_rows[static_cast<std::size_t>(row - 1)].texts;
  if (texts.empty()) texts.resize(m_columns.size());
  texts[static_cast<std::size_t>(column)] = text;
  TellUnlessFrozen(Aspect::Cells);
}

const std::string& Grid::RowData(int row) const {
  CheckRow(row);
  return row == 0 ? m_headerData : m_rows[static_cast<std::size_t>(row - 1)].data;
}

void Grid::RowData(int row, std::string_view data) {
  CheckRow(row);
  (row == 0 ? m_headerData : m_rows[static_cast<std::size_t>(row - 1)].data) = data;
}

void Grid::Row(int row) { Select(row, m_col, false); }

void Grid::Redraw(bool redraw) {
  if (m_redraw == redraw) return;
  m_redraw = redraw;
  for (const auto aspect : {Aspect::Columns, Aspect::Rows, Aspect::Cells, Aspect::CurrentRow}) TellUnlessFrozen(aspect);
}

void Grid::PeerRow(int row, int column) {
  // The header row cannot be chosen by hand.
  if (row != 0) Select(row, column, true);
}

void Grid::Select(int row, int column, bool fromPeer) {
  CheckCell(row, column);
  const auto oldRow = std::exchange(m_row, row);
  const auto oldCol = std::exchange(m_col, column);
  if (oldRow == row && oldCol == column) return;
  if (!fromPeer) TellUnlessFrozen(Aspect::CurrentRow);
  Raise(AfterSelChange, oldRow, oldCol, row, column);
}

void Grid::TellUnlessFrozen(Aspect aspect) {
  if (m_redraw) Tell(aspect);
}

void Grid::CheckRow(int row) const {
  if (row < 0 || row >= Rows()) throw Error(errors::InvalidPropertyIndex);
}

void Grid::CheckCell(int row, int column) const {
  CheckRow(row);
  if (column < 0 || column >= Cols()) throw Error(errors::InvalidPropertyIndex);
}

}  // namespace pellora
