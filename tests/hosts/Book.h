#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Convert.h"
#include "core/Dispatch.h"
#include "core/Error.h"

namespace pellora::test {

/// A late-bound object, used as a macro uses it.
class Late {
 public:
  Late(DispatchPtr object) : m_object(std::move(object)) {}
  const DispatchPtr& get() const { return m_object; }

  Variant Get(std::string_view name, std::initializer_list<Variant> arguments = {}) const {
    return m_object->Invoke(name, CallKind::Get, std::span(arguments.begin(), arguments.size()));
  }
  Late Object(std::string_view name, std::initializer_list<Variant> arguments = {}) const {
    auto object = ToObject(Get(name, arguments));
    if (!object) throw Error(errors::ObjectRequired);
    return object;
  }
  void Put(std::string_view name, const Variant& value) const {
    m_object->Invoke(name, CallKind::Put, std::span(&value, 1));
  }
  Variant Call(std::string_view name, std::initializer_list<Variant> arguments = {}) const {
    return m_object->Invoke(name, CallKind::Call, std::span(arguments.begin(), arguments.size()));
  }

 private:
  DispatchPtr m_object;
};

/// A border line as the object model numbers it; `style` -4142 is none.
struct BorderLine {
  std::int32_t style = -4142;
  std::int32_t weight = 2;
  std::int32_t colorIndex = -4105;
  bool operator==(const BorderLine&) const = default;
};

/// The open workbook of a host, for arranging and looking, by the spreadsheet object model alone. Does not go through
/// the library's door, so nothing of it is counted or observed there. A copy is the same workbook.
class Book {
 public:
  explicit Book(DispatchPtr application) : m_application(std::move(application)) {}
  const DispatchPtr& application() const { return m_application.get(); }

  /// Appends an empty sheet; the active one stays active.
  void AddSheet(std::string_view name) const {
    const auto active = m_application.Object("ActiveSheet");
    const auto sheets = Sheets();
    const auto last = sheets.Object("Item", {sheets.Get("Count")});
    sheets.Object("Add", {Variant::Missing(), last.get()}).Put("Name", name);
    active.Call("Activate");
  }
  void DeleteSheet(std::string_view name) const {
    m_application.Put("DisplayAlerts", false);
    Sheet(name).Call("Delete");
    m_application.Put("DisplayAlerts", true);
  }
  /// Adds a workbook name, or gives one a new meaning, such as "TWS_Quotes!$A:$A".
  void AddName(std::string_view name, std::string_view refersTo) const {
    Names().Call("Add", {name, "=" + std::string(refersTo)});
  }
  void DeleteName(std::string_view name) const { Names().Object("Item", {name}).Call("Delete"); }
  /// Empties every cell of a sheet.
  void Clear(std::string_view sheet) const { Sheet(sheet).Object("Cells").Call("ClearContents"); }

  /// Sets one cell. A text stays the text that it is, except that one beginning with "=" is a formula.
  void Set(std::string_view sheet, std::string_view address, const Variant& value) const {
    Cells(sheet, address).Put("Value", AsItIs(value));
  }
  /// Sets a whole block, of which `address` is the first cell, in one call; what is empty in it empties its cell.
  void SetBlock(std::string_view sheet, std::string_view address, const VariantArray& values) const {
    auto block = std::make_shared<VariantArray>(values.Rows(), values.Columns());
    for (std::size_t row = 0; row < values.Rows(); ++row)
      for (std::size_t column = 0; column < values.Columns(); ++column)
        block->At(row, column) = AsItIs(values.At(row, column));
    const auto rows = static_cast<std::int32_t>(values.Rows()), columns = static_cast<std::int32_t>(values.Columns());
    Cells(sheet, address).Object("Resize", {rows, columns}).Put("Value", Variant(block));
  }
  void SetColumnWidth(std::string_view sheet, std::string_view columns, double characters) const {
    Cells(sheet, columns).Put("ColumnWidth", characters);
  }

  Variant Value(std::string_view sheet, std::string_view address) const { return Cells(sheet, address).Get("Value"); }
  /// The formula; "" for a constant, as for an empty cell.
  std::string Formula(std::string_view sheet, std::string_view address) const {
    const auto text = ToText(Cells(sheet, address).Get("Formula"));
    return text.starts_with('=') ? text : "";
  }
  /// The width in characters of a column, named by a letter.
  double ColumnWidth(std::string_view sheet, std::string_view column) const {
    return ToDouble(Cells(sheet, std::string(column) + "1").Get("ColumnWidth"));
  }
  /// The background's index in the palette, -4142 for none.
  std::int32_t Interior(std::string_view sheet, std::string_view address) const {
    return ToLong(Cells(sheet, address).Object("Interior").Get("ColorIndex"));
  }
  /// A cell's lines: both diagonals, left, top, bottom, right.
  std::vector<BorderLine> Lines(std::string_view sheet, std::string_view address) const {
    std::vector<BorderLine> lines;
    for (std::int32_t index = 5; index <= 10; ++index) {
      const auto border = Cells(sheet, address).Object("Borders", {index});
      lines.push_back({ToLong(border.Get("LineStyle")), ToLong(border.Get("Weight")), Number(border, "ColorIndex")});
    }
    return lines;
  }
  std::vector<std::string> SheetNames() const {
    std::vector<std::string> names;
    const auto sheets = Sheets();
    for (std::int32_t i = 1, count = ToLong(sheets.Get("Count")); i <= count; ++i)
      names.push_back(ToText(sheets.Object("Item", {i}).Get("Name")));
    return names;
  }
  std::string ActiveSheet() const { return ToText(m_application.Object("ActiveSheet").Get("Name")); }
  bool ScreenUpdating() const { return ToBoolean(m_application.Get("ScreenUpdating")); }
  void ScreenUpdating(bool on) const { m_application.Put("ScreenUpdating", on); }

  Late Sheet(std::string_view name) const { return Sheets().Object("Item", {name}); }
  Late Cells(std::string_view sheet, std::string_view address) const { return Sheet(sheet).Object("Range", {address}); }

 private:
  Late Sheets() const { return m_application.Object("ActiveWorkbook").Object("Worksheets"); }
  Late Names() const { return m_application.Object("ActiveWorkbook").Object("Names"); }
  // The colour of a line that is not there may be answered as no number.
  static std::int32_t Number(const Late& object, std::string_view name) {
    const auto value = object.Get(name);
    return value.Is(Variant::Type::Null) ? -4142 : ToLong(value);
  }
  static Variant AsItIs(const Variant& value) {
    const bool text = value.Is(Variant::Type::String) && !value.String().empty() && value.String().front() != '=';
    return text ? Variant("'" + value.String()) : value;
  }

  Late m_application;
};

}  // namespace pellora::test
