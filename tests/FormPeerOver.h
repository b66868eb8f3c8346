#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "forms/Peers.h"

namespace pellora::tests {

/// A form's window over another one, to which it passes everything on; a test's own overrides what it watches.
class FormPeerOver : public FormPeer {
 public:
  explicit FormPeerOver(std::unique_ptr<FormPeer> inner) : m_inner(std::move(inner)) {}
  void ShowModal() override { m_inner->ShowModal(); }
  void EndModal() override { m_inner->EndModal(); }
  void CaptionChanged() override { m_inner->CaptionChanged(); }
  std::optional<Placement> GetPlacement() override { return m_inner->GetPlacement(); }
  bool SetPlacement(const Placement& placement) override { return m_inner->SetPlacement(placement); }
  Rect Desktop() override { return m_inner->Desktop(); }
  Size OuterSize() override { return m_inner->OuterSize(); }
  void BringToFront() override { m_inner->BringToFront(); }

 private:
  std::unique_ptr<FormPeer> m_inner;
};

}  // namespace pellora::tests
