#include "platform/libreoffice/forms/Pages.h"

namespace pellora::libreoffice {

PagesPeer::PagesPeer(UnoFormPeer& form, pellora::Pages& pages) : PeerOf(form, pages) {}

}  // namespace pellora::libreoffice
