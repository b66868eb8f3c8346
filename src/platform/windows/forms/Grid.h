#pragma once

#include "forms/Grid.h"
#include "platform/windows/forms/Control.h"
#include "platform/windows/forms/Owners.h"

namespace pellora::windows {

/// A list in report view that holds no texts: it asks for those it paints. The grid's row 0 is the header, so item i
/// shows row i + 1. Columns get the control's widths at the form's scale and share what room is left over, until the
/// user drags one.
class GridPeer : public PeerOf<pellora::Grid> {
 public:
  GridPeer(WindowsFormPeer& form, pellora::Grid& grid);

  void Placed() override;
  void FontChanged() override;
  void ColoursChanged() override;

 protected:
  void Update(Aspect aspect) override;
  LRESULT OnNotify(const NMHDR& header) override;

 private:
  void AddColumns();
  void FollowHeaders();
  void FollowWidths();
  void FollowRows();
  void FollowCurrentRow();
  void GiveText(const NMLVDISPINFOW& request) const;
  LRESULT Paint(NMLVCUSTOMDRAW& step) const;
  LRESULT FindRow(const NMLVFINDITEMW& request) const;
  void ItemChanged(const NMLISTVIEW& change);
  void Clicked(const NMITEMACTIVATE& click);
  int ColumnUnderPointer() const;

  void SetRowHeight();

  ImageListOwner m_rowHeight;
  bool m_ready = false;
  bool m_dragged = false;
};

}  // namespace pellora::windows
