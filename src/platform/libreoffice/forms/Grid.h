#pragma once

#include <com/sun/star/awt/grid/XGridColumnModel.hpp>
#include <com/sun/star/awt/grid/XGridControl.hpp>
#include <com/sun/star/awt/grid/XGridDataListener.hpp>
#include <com/sun/star/awt/grid/XGridRowSelection.hpp>
#include <rtl/ref.hxx>

#include "forms/Grid.h"
#include "platform/libreoffice/forms/Control.h"
#include "platform/libreoffice/forms/GridData.h"

namespace pellora::libreoffice {

/// A table that holds no texts: it asks for those it paints. The grid's row 0 is the header, so the table's row i shows
/// row i + 1. Columns get the control's widths at the form's scale and share what room is left over.
class GridPeer : public PeerOf<pellora::Grid> {
 public:
  GridPeer(UnoFormPeer& form, pellora::Grid& grid);
  ~GridPeer() override;

  void Placed() override;
  /// The keys that make another row current; a letter goes to the next row that begins with it.
  bool Act(const awt::KeyEvent& key) override;

 protected:
  void Update(Aspect aspect) override;
  void OnReport(Happening happening) override;

 private:
  void MakeColumns();
  void SetLooks();
  void FollowColumns();
  void FollowRows();
  void FollowCells();
  void FollowCurrentRow();
  int RowsOnView() const;
  int RoomForColumns() const;
  int RowFor(const awt::KeyEvent& key) const;
  int NextRowBeginningWith(sal_Unicode letter) const;
  sal_Int32 InLogicalWidth(int pixels) const;
  sal_Int32 InLogicalHeight(int pixels) const;

  uno::Reference<awt::grid::XGridControl> m_table;
  uno::Reference<awt::grid::XGridRowSelection> m_selection;
  uno::Reference<awt::grid::XGridDataListener> m_told;
  uno::Reference<awt::grid::XGridColumnModel> m_columns;
  rtl::Reference<GridData> m_data;
  int m_room = 0;
};

}  // namespace pellora::libreoffice
