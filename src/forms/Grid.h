#pragma once

#include <string>
#include <vector>

#include "forms/Control.h"

namespace pellora {

/// A table of texts. Row 0 is the fixed header row; data rows follow. Every row carries a text of the program's own
/// (`RowData`). One row is current (0 when there is no data row to be current); the user makes another current by
/// key or mouse. The grid holds its texts; a peer asks for those it paints, so its cost does not grow with the rows.
class Grid : public Control {
 public:
  struct Column {
    std::string header;
    /// dip at 96 dpi; 1 dip = 15 twips.
    int width = 64;
  };

  Grid(Container& parent, std::string_view name, std::vector<Column> columns);

  int Cols() const { return static_cast<int>(m_columns.size()); }
  const Column& ColumnAt(int column) const;
  void ColumnWidth(int column, int dip);

  /// Rows with the header row, so 1 when there is no data.
  int Rows() const;
  /// Cuts or extends (new rows are empty). A current row that is cut away makes the last row left current, which
  /// raises `AfterSelChange`. Raises 380 for less than 1.
  void Rows(int count);

  /// Row 0 answers the headers. Raises 381 outside.
  const std::string& Text(int row, int column) const;
  void Text(int row, int column, std::string_view text);
  const std::string& RowData(int row) const;
  void RowData(int row, std::string_view data);

  /// The current row. Before any was made current it is 0.
  int Row() const { return m_row; }
  /// Makes a row current and raises `AfterSelChange` when it was not. Raises 381 outside.
  void Row(int row);
  /// The column of the selection; 0 until the user clicks elsewhere.
  int Col() const { return m_col; }

  /// While off, the peer hears nothing; switching on tells it once of everything.
  bool Redraw() const { return m_redraw; }
  void Redraw(bool redraw);

  bool TabStop() const override { return true; }

  /// Old row, old column, new row, new column of the selection.
  std::function<void(int, int, int, int)> AfterSelChange;

  /// The user has made a row current.
  void PeerRow(int row, int column);

 private:
  struct DataRow {
    std::vector<std::string> texts;
    std::string data;
  };
  void Select(int row, int column, bool fromPeer);
  void TellUnlessFrozen(Aspect aspect);
  void CheckRow(int row) const;
  void CheckCell(int row, int column) const;

  std::vector<Column> m_columns;
  std::vector<DataRow> m_rows;
  std::string m_headerData;
  int m_row = 0;
  int m_col = 0;
  bool m_redraw = true;
};

}  // namespace pellora
