#pragma once

#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "forms/Peers.h"

namespace pellora::libreoffice {

/// Makes the windows of forms with the office program's own window toolkit.
class UnoToolkit : public Toolkit {
 public:
  explicit UnoToolkit(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

  std::unique_ptr<FormPeer> CreatePeer(Form& form) override;
  MessageAnswer ShowMessage(const Message& message) override;
  void Beep() override;

 private:
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_context;
};

}  // namespace pellora::libreoffice
