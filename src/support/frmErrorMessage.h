#pragma once

#include <string>
#include <string_view>

#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Frame.h"
#include "forms/Label.h"
#include "forms/TextBox.h"

namespace pellora {

/// Shows an error's text with the library's version and asks what to do: abort, retry or ignore; can hand the text to
/// the user's mail program, addressed to support. `Tag` holds the answer, "ABORT", "RETRY" or "IGNORE", after `Show`;
/// closing the dialog in any other way is "ABORT".
///
/// Order of use: load, set `ErrorMessage` and `SupportMail`, show, read `Tag`, unload. It is the error reporter itself,
/// so it is not under the error protocol: every statement of its routines ignores its own failure.
class frmErrorMessage : public Form {
 public:
  explicit frmErrorMessage(Toolkit& toolkit);

  /// The support address, not checked; without one nothing can be sent.
  void SupportMail(std::string_view address);

  /// Shows the text, followed by a line with the library's version.
  void ErrorMessage(std::string_view text);
  /// The text as it is shown.
  const std::string& ErrorMessage() const { return txtErrorMessage.Text(); }

 protected:
  void OnLoad() override;

 private:
  void btnAbort_Click() { Answer("ABORT"); }
  void btnRetry_Click() { Answer("RETRY"); }
  void btnIgnore_Click() { Answer("IGNORE"); }
  void btnSend_Click();

  void Answer(std::string_view result);
  std::string MailUrl() const;

  std::string m_supportMail;

  Panel elaTitle{*this, "elaTitle"};
  Label elaTitleCaption{elaTitle, "elaTitleCaption", ""};
  Panel elaInfo{*this, "elaInfo"};
  TextBox txtErrorMessage{elaInfo, "txtErrorMessage"};
  Panel elaButtons{*this, "elaButtons"};
  CommandButton btnAbort{elaButtons, "btnAbort", "Abort"};
  CommandButton btnRetry{elaButtons, "btnRetry", "Retry"};
  CommandButton btnIgnore{elaButtons, "btnIgnore", "Ignore"};
  CommandButton btnSend{elaButtons, "btnSend", "Send to Support"};
};

}  // namespace pellora
