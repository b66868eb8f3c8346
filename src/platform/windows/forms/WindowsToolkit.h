#pragma once

#include <memory>

#include "forms/Peers.h"
#include "platform/windows/forms/Manifest.h"

namespace pellora::windows {

/// Makes the native windows of forms. One lives as long as the library is used; it keeps the library's manifest ready
/// and registers nothing, so no window class, font or hook is left when the last form has closed.
class WindowsToolkit : public Toolkit {
 public:
  /// `module` holds the manifest of the common controls as the resource of that id.
  WindowsToolkit(HINSTANCE module, int manifestResource);

  std::unique_ptr<FormPeer> CreatePeer(Form& form) override;
  /// The calling thread's windows cannot be used while the message is up, and are given back as they were.
  MessageAnswer ShowMessage(const Message& message) override;
  void Beep() override;

  /// Lays out and chooses fonts for that scale whatever the display has; 0 follows the display. For tests and pictures.
  void ForceDpi(int dpi) { m_forcedDpi = dpi; }

 private:
  HINSTANCE m_module;
  Manifest m_manifest;
  int m_forcedDpi = 0;
};

}  // namespace pellora::windows
