#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <string_view>

#include "core/Error.h"
#include "excel/Application.h"
#include "platform/libreoffice/uno/Application.h"
#include "platform/libreoffice/uno/Text.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::test {

/// A fresh spreadsheet of the office program, the active one, closed unsaved at the end. It has one sheet, "Sheet1".
/// It is not opened hidden: the object model's active workbook is that of the active window, and there would be none.
class CalcDocument {
 public:
  CalcDocument() {
    const auto desktop = com::sun::star::frame::Desktop::create(Office());
    m_model.set(desktop->loadComponentFromURL("private:factory/scalc", "_blank", 0, {}),
                com::sun::star::uno::UNO_QUERY_THROW);
  }
  CalcDocument(const CalcDocument&) = delete;
  CalcDocument& operator=(const CalcDocument&) = delete;
  ~CalcDocument() { Close(); }

  void Close() {
    const com::sun::star::uno::Reference<com::sun::star::util::XCloseable> open(m_model,
                                                                                com::sun::star::uno::UNO_QUERY);
    m_model.clear();
    if (open.is()) open->close(true);
  }

  /// A further sheet, the last one.
  void AddSheet(std::string_view name) {
    const auto sheets = Book()->getSheets();
    sheets->insertNewByName(libreoffice::Wide(name), static_cast<sal_Int16>(sheets->getElementNames().getLength()));
  }

  /// A workbook name for an address with its sheet, as "$Sheet1.$A$1".
  void AddName(std::string_view name, std::string_view content) {
    const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet> properties(
        m_model, com::sun::star::uno::UNO_QUERY_THROW);
    com::sun::star::uno::Reference<com::sun::star::sheet::XNamedRanges> names;
    properties->getPropertyValue("NamedRanges") >>= names;
    names->addNewByName(libreoffice::Wide(name), libreoffice::Wide(content), {}, 0);
  }

  com::sun::star::uno::Reference<com::sun::star::table::XCellRange> Sheet(std::string_view name) const {
    com::sun::star::uno::Reference<com::sun::star::table::XCellRange> sheet;
    Book()->getSheets()->getByName(libreoffice::Wide(name)) >>= sheet;
    return sheet;
  }
  /// A cell of a sheet in the program's own terms, behind the object model; row and column from 1.
  com::sun::star::uno::Reference<com::sun::star::table::XCell> Cell(std::string_view sheet, int row, int column) const {
    return Sheet(sheet)->getCellByPosition(column - 1, row - 1);
  }

  /// The named sheet may not be changed any more; without a password.
  void Protect(std::string_view sheet) {
    const com::sun::star::uno::Reference<com::sun::star::util::XProtectable> guarded(
        Sheet(sheet), com::sun::star::uno::UNO_QUERY_THROW);
    guarded->protect({});
  }

  const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& Model() const { return m_model; }
  com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument> Book() const {
    return {m_model, com::sun::star::uno::UNO_QUERY_THROW};
  }
  excel::Application Excel() const { return excel::Application(libreoffice::ApplicationOf(m_model, Office())); }

 private:
  com::sun::star::uno::Reference<com::sun::star::frame::XModel> m_model;
};

/// The number of the `Error` that a step raises; 0 when it raises none.
template <class Step>
std::int32_t NumberOf(Step&& step) {
  try {
    step();
    return 0;
  } catch (const Error& error) {
    return error.Number();
  }
}

}  // namespace pellora::test
