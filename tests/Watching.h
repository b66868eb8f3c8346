#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Error.h"
#include "forms/Form.h"
#include "forms/Peers.h"
#include "tests/FormPeerOver.h"

namespace pellora::tests {

/// A toolkit over another one that tells a test when a form's window is made and when a form ends its showing. What a
/// hook raises, the form meets as a failure of its platform.
class WatchingToolkit : public Toolkit {
 public:
  explicit WatchingToolkit(Toolkit& inner) : m_inner(inner) {}

  std::function<void(Form&)> making;
  std::function<void(Form&)> hiding;

  std::unique_ptr<FormPeer> CreatePeer(Form& form) override {
    if (making) making(form);
    return std::make_unique<Peer>(*this, form, m_inner.CreatePeer(form));
  }
  MessageAnswer ShowMessage(const Message& message) override { return m_inner.ShowMessage(message); }
  void Beep() override { m_inner.Beep(); }

  /// Makes the form of that name fail, with a type mismatch, to end its showing, the next time it is asked to.
  void RefuseToHideOnce(std::string_view name) {
    hiding = [this, name = std::string(name)](Form& form) {
      if (form.Name() != name) return;
      hiding = nullptr;
      throw Error(errors::TypeMismatch);
    };
  }

 private:
  class Peer : public FormPeerOver {
   public:
    Peer(WatchingToolkit& toolkit, Form& form, std::unique_ptr<FormPeer> inner)
        : FormPeerOver(std::move(inner)), m_toolkit(toolkit), m_form(form) {}
    void EndModal() override {
      // A copy: a hook may take itself away.
      if (const auto hook = m_toolkit.hiding) hook(m_form);
      FormPeerOver::EndModal();
    }

   private:
    WatchingToolkit& m_toolkit;
    Form& m_form;
  };

  Toolkit& m_inner;
};

/// The window of a control that fails at whatever it is told, with a type mismatch.
class RefusingPeer : public ControlPeer {
 public:
  void Changed(Aspect) override { throw Error(errors::TypeMismatch); }
  void Focus() override { throw Error(errors::TypeMismatch); }
};

inline void Refuse(Control& control) { control.AttachPeer(std::make_unique<RefusingPeer>()); }

}  // namespace pellora::tests
