#include "platform/windows/ole/Owners.h"

#include "core/Error.h"
#include "core/Text.h"

namespace pellora::ole {

std::wstring Wide(std::string_view text) {
  const std::u16string units = ToUtf16(text);
  return {units.begin(), units.end()};
}

std::string Narrow(std::wstring_view text) { return ToUtf8(std::u16string(text.begin(), text.end())); }

BStr::BStr(std::string_view text) {
  const std::wstring wide = Wide(text);
  m_text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!m_text) throw Error(errors::OutOfMemory);
}

std::string BStr::Text() const { return m_text ? Narrow({m_text, SysStringLen(m_text)}) : std::string(); }

void ExcepInfo::Complete() {
  if (const auto fillIn = std::exchange(m_info.pfnDeferredFillIn, nullptr)) fillIn(&m_info);
}

void ExcepInfo::reset() {
  SysFreeString(m_info.bstrSource);
  SysFreeString(m_info.bstrDescription);
  SysFreeString(m_info.bstrHelpFile);
  m_info = {};
}

}  // namespace pellora::ole
