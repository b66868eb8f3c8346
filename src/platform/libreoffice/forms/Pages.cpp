#include "platform/libreoffice/forms/Pages.h"

#include <algorithm>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/tab/XTabPageContainerModel.hpp>
#include <com/sun/star/container/XIndexContainer.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>

#include "platform/libreoffice/forms/Captions.h"
#include "platform/libreoffice/forms/Form.h"

namespace pellora::libreoffice {
namespace {

template <class Interface>
uno::Reference<Interface> Create(const uno::Reference<uno::XComponentContext>& context, const char* service) {
  return {context->getServiceManager()->createInstanceWithContext(rtl::OUString::createFromAscii(service), context),
          uno::UNO_QUERY_THROW};
}

}  // namespace

PagesPeer::PagesPeer(UnoFormPeer& form, pellora::Pages& pages) : PeerOf(form, pages) {
  if (!pages.ShowTabs()) return;
  WhileThere([&] { MakeTabs(); });
  Changed(Aspect::Page);
}

PagesPeer::~PagesPeer() {
  if (m_control.is()) WhileThere([&] { m_control->dispose(); });
}

void PagesPeer::MakeTabs() {
  // The toolkit's tabs are made of models only.
  const auto model = Create<awt::tab::XTabPageContainerModel>(m_form.GetContext(),
                                                              "com.sun.star.awt.tab.UnoControlTabPageContainerModel");
  const uno::Reference<com::sun::star::container::XIndexContainer> tabs(model, uno::UNO_QUERY_THROW);
  for (const auto* page : Self().Children()) {
    const auto tab = model->createTabPage(static_cast<sal_Int16>(tabs->getCount() + 1));
    tab->setTitle(NativeCaption(page->Caption(), page->AccessKey()));
    tabs->insertByIndex(tabs->getCount(), uno::Any(tab));
  }
  m_control = Create<awt::XControl>(m_form.GetContext(), "com.sun.star.awt.tab.UnoControlTabPageContainer");
  m_control->setModel(uno::Reference<awt::XControlModel>(model, uno::UNO_QUERY_THROW));
  m_control->createPeer(m_form.GetToolkit(), m_form.GetWindow().Peer());
  Adopt(m_control->getPeer());
  m_tabs.set(m_control, uno::UNO_QUERY_THROW);
  m_tabs->addTabPageContainerListener(Listener());
}

void PagesPeer::Update(Aspect aspect) {
  const auto id = static_cast<sal_Int16>(Self().CurrentPage() + 1);
  if (aspect == Aspect::Page && m_tabs.is() && m_tabs->getActiveTabPageID() != id) m_tabs->setActiveTabPageID(id);
}

bool PagesPeer::Act(const awt::KeyEvent& key) {
  const auto step = key.KeyCode == awt::Key::LEFT ? -1 : key.KeyCode == awt::Key::RIGHT ? 1 : 0;
  if (step == 0 || key.Modifiers) return false;
  Self().PeerPage(std::clamp(Self().CurrentPage() + step, 0, Self().PageCount() - 1));
  return true;
}

void PagesPeer::OnReport(Happening happening) {
  const auto page = m_tabs.is() ? m_tabs->getActiveTabPageID() - 1 : -1;
  if (happening == Happening::Choice && page >= 0 && page < Self().PageCount()) Self().PeerPage(page);
}

}  // namespace pellora::libreoffice
