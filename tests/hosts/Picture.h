#pragma once

#include <sstream>
#include <string>

#include "core/Convert.h"
#include "tests/hosts/Book.h"

namespace pellora::test {

/// Draws one sheet: what its used cells hold and how they look, and their columns' widths. Blocks are read in one call;
/// cells are looked at one by one only in rows that have lines or a background of several kinds.
class SheetPicture {
 public:
  SheetPicture(const Book& book, std::string name)
      : m_book(book), m_name(std::move(name)), m_used(m_book.Sheet(m_name).Object("UsedRange")) {}

  std::string Text() {
    m_out << "[" << m_name << "] " << ToText(m_used.Get("Address")) << "\n";
    Contents();
    const auto rows = ToLong(m_used.Object("Rows").Get("Count"));
    const auto columns = ToLong(m_used.Object("Columns").Get("Count"));
    for (std::int32_t row = 1; row <= rows; ++row)
      Look(m_used.Object("Cells", {row, 1}).Object("Resize", {1, columns}));
    for (std::int32_t column = 1; column <= columns; ++column)
      m_out << Show(m_used.Object("Cells", {1, column}).Get("ColumnWidth")) << " ";
    m_out << "\n";
    return m_out.str();
  }

 private:
  static std::string Show(const Variant& value) {
    if (value.Is(Variant::Type::Error)) return "#";
    return value.IsEmpty() || value.Is(Variant::Type::Null) ? "" : ToText(value);
  }

  void Contents() {
    const auto formulas = m_used.Get("Formula"), values = m_used.Get("Value");
    if (!formulas.Is(Variant::Type::Array)) {
      m_out << Show(formulas) << "|" << Show(values) << "\n";
      return;
    }
    for (std::size_t row = 0; row < formulas.Array().Rows(); ++row) {
      for (std::size_t column = 0; column < formulas.Array().Columns(); ++column)
        m_out << Show(formulas.Array().At(row, column)) << "|" << Show(values.Array().At(row, column)) << ";";
      m_out << "\n";
    }
  }

  void Look(const Late& row) {
    const auto interior = row.Object("Interior").Get("ColorIndex");
    bool plain = !interior.Is(Variant::Type::Null);
    for (std::int32_t index = 5; plain && index <= 11; ++index)
      plain = row.Object("Borders", {index}).Get("LineStyle") == Variant(std::int32_t{-4142});
    m_out << Show(interior);
    for (std::int32_t column = 1; !plain && column <= ToLong(row.Get("Count")); ++column)
      m_out << " " << LookOf(row.Object("Cells", {1, column}));
    m_out << "\n";
  }

  static std::string LookOf(const Late& cell) {
    std::string text = Show(cell.Object("Interior").Get("ColorIndex"));
    for (std::int32_t index = 5; index <= 10; ++index) {
      const auto border = cell.Object("Borders", {index});
      for (const auto* property : {"LineStyle", "Weight", "ColorIndex"}) text += "/" + Show(border.Get(property));
    }
    return text;
  }

  const Book& m_book;
  std::string m_name;
  Late m_used;
  std::ostringstream m_out;
};

/// Everything a workbook shows, as one text, to be compared with what the same host showed before: and which sheet is
/// active, and whether the screen is updated.
inline std::string Picture(const Book& book) {
  std::string text;
  for (const auto& name : book.SheetNames()) text += SheetPicture(book, name).Text();
  text += "active " + book.ActiveSheet() + "\n";
  return text + (book.ScreenUpdating() ? "updating 1" : "updating 0");
}

}  // namespace pellora::test
