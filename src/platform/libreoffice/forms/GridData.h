#pragma once

#include <com/sun/star/awt/grid/XGridDataModel.hpp>
#include <cppuhelper/implbase1.hxx>

#include "forms/Grid.h"

namespace pellora::libreoffice {

/// The rows of a grid as the toolkit's table asks for them, a cell at a time and only those it paints. It may live
/// longer than the grid, which lets go of it; then it is empty.
class GridData : public cppu::WeakImplHelper1<com::sun::star::awt::grid::XGridDataModel> {
 public:
  explicit GridData(const pellora::Grid& grid) : m_grid(&grid) {}
  void Detach() { m_grid = nullptr; }
  /// The rows the table has been told of; it must not be asked to show others.
  void Rows(sal_Int32 rows) { m_rows = rows; }
  sal_Int32 Rows() const { return m_rows; }

  sal_Int32 SAL_CALL getRowCount() override { return m_rows; }
  sal_Int32 SAL_CALL getColumnCount() override;
  com::sun::star::uno::Any SAL_CALL getCellData(sal_Int32 column, sal_Int32 row) override;
  com::sun::star::uno::Any SAL_CALL getCellToolTip(sal_Int32 column, sal_Int32 row) override;
  com::sun::star::uno::Any SAL_CALL getRowHeading(sal_Int32 row) override;
  com::sun::star::uno::Sequence<com::sun::star::uno::Any> SAL_CALL getRowData(sal_Int32 row) override;
  com::sun::star::uno::Reference<com::sun::star::util::XCloneable> SAL_CALL createClone() override;
  // Lasts as long as it is held; there is nothing to give up before.
  void SAL_CALL dispose() override {}
  void SAL_CALL addEventListener(const com::sun::star::uno::Reference<com::sun::star::lang::XEventListener>&) override {
  }
  void SAL_CALL
  removeEventListener(const com::sun::star::uno::Reference<com::sun::star::lang::XEventListener>&) override {}

 private:
  const pellora::Grid* m_grid;
  sal_Int32 m_rows = 0;
};

}  // namespace pellora::libreoffice
