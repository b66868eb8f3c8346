#pragma once

#include <optional>

#include "platform/headless/Headless.h"

namespace pellora::headless {

/// A window without a screen: it has a place, lays its form out, and hands its modal showing to the scripted user.
class HeadlessFormPeer : public FormPeer {
 public:
  HeadlessFormPeer(HeadlessToolkit& toolkit, Form& form);
  ~HeadlessFormPeer() override;

  void ShowModal() override;
  void EndModal() override { m_ended = true; }
  void CaptionChanged() override {}
  std::optional<Placement> GetPlacement() override;
  bool SetPlacement(const Placement& placement) override;
  Rect Desktop() override { return m_toolkit.desktop; }
  Size OuterSize() override;
  void BringToFront() override { m_toolkit.broughtToFront.push_back(m_form.Name()); }

  /// The least client area that the form's content needs.
  Size LeastClient() const;
  Size Client() const { return m_client; }
  /// Lays the form out in a client area of that size, or its least size.
  void Resize(Size client);
  /// A control needs more or less room now: hidden, shown, or with another caption.
  void LayOutAgain() { Resize(m_client); }

 private:
  Size ClientFor(const Placement& placement) const;
  Size WindowFrame() const;

  HeadlessToolkit& m_toolkit;
  Form& m_form;
  HeadlessMeasurer m_measurer;
  Placement m_placement;
  Size m_client;
  bool m_ended = false;
};

}  // namespace pellora::headless
