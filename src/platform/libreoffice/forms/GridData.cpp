#include "platform/libreoffice/forms/GridData.h"

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {

namespace uno = com::sun::star::uno;

sal_Int32 GridData::getColumnCount() { return m_grid ? m_grid->Cols() : 0; }

uno::Any GridData::getCellData(sal_Int32 column, sal_Int32 row) {
  // Row 0 of the grid is the header.
  const auto gridRow = row + 1;
  const auto known = m_grid && row >= 0 && gridRow < m_grid->Rows() && column >= 0 && column < m_grid->Cols();
  return uno::Any(known ? Wide(m_grid->Text(gridRow, column)) : rtl::OUString());
}

uno::Any GridData::getCellToolTip(sal_Int32, sal_Int32) { return {}; }

uno::Any GridData::getRowHeading(sal_Int32) { return {}; }

uno::Sequence<uno::Any> GridData::getRowData(sal_Int32 row) {
  uno::Sequence<uno::Any> texts(getColumnCount());
  for (sal_Int32 column = 0; column < texts.getLength(); ++column) texts[column] = getCellData(column, row);
  return texts;
}

uno::Reference<com::sun::star::util::XCloneable> GridData::createClone() { return this; }

}  // namespace pellora::libreoffice
