#pragma once

#include <cstdint>

#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "support/Routine.h"

namespace pellora {

/// The dialog in which the user ticks the quote fields of a new project. It writes nothing anywhere: it holds the ten
/// states for its caller and leaves the outcome in its `Tag`, "1" for confirmed, "2" for cancelled, empty when the
/// window was closed. It lives for one request; all boxes start unticked.
class frmNewProject : public Form, private Routines {
 public:
  explicit frmNewProject(Toolkit& toolkit);

  /// The quote fields, in tab order. 0 is not wanted; 1, and 2 should it ever be set, is wanted.
  CheckBox chkLastPrice{*this, "chkLastPrice", "Last Price"};
  CheckBox chkLastSize{*this, "chkLastSize", "Last Size"};
  CheckBox chkBidPrice{*this, "chkBidPrice", "Bid Price"};
  CheckBox chkBidSize{*this, "chkBidSize", "Bid Size"};
  CheckBox chkAskPrice{*this, "chkAskPrice", "Ask Price"};
  CheckBox chkAskSize{*this, "chkAskSize", "Ask Size"};
  CheckBox chkHigh{*this, "chkHigh", "High"};
  CheckBox chkLow{*this, "chkLow", "Low"};
  CheckBox chkVolume{*this, "chkVolume", "Volume"};
  CheckBox chkClose{*this, "chkClose", "Close"};

  CommandButton ButCheckAll{*this, "ButCheckAll", "Check all"};
  CommandButton ButUncheckAll{*this, "ButUncheckAll", "Uncheck all"};
  CommandButton ButCreateProject{*this, "ButCreateProject", "Create project"};
  CommandButton ButCancel{*this, "ButCancel", "Cancel"};

  /// Sets all ten boxes to `value`. It comes by reference and is never written.
  void CheckUncheck(std::int16_t& value);

  void ButCreateProject_Click();
  void ButCancel_Click();
  void ButCheckAll_Click();
  void ButUncheckAll_Click();
};

}  // namespace pellora
