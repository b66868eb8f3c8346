#include "platform/windows/ole/AutomationObject.h"

#include <dispex.h>

#include <cctype>
#include <cstring>
#include <map>
#include <vector>

#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"

namespace pellora::ole {
namespace {

constexpr LCID kLocale = 0x0409;

CallHook* g_hook = nullptr;
unsigned long g_lookups = 0;

template <class Body>
auto Outside(Body&& body) {
  if (!g_hook) return body();
  decltype(body()) answer{};
  auto call = [&] { answer = body(); };
  g_hook->Around(std::ref(call));
  return answer;
}

struct GuidLess {
  bool operator()(const GUID& left, const GUID& right) const { return std::memcmp(&left, &right, sizeof left) < 0; }
};

using IdsOfType = std::map<std::string, DISPID, std::less<>>;

IdsOfType& KnownIds(const GUID& type) {
  static std::map<GUID, IdsOfType, GuidLess> known;
  return known[type];
}

std::string LowerName(std::string_view name) {
  std::string lower(name);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

WORD FlagsOf(CallKind kind) {
  switch (kind) {
    case CallKind::Get: return DISPATCH_PROPERTYGET | DISPATCH_METHOD;
    case CallKind::Put: return DISPATCH_PROPERTYPUT;
    case CallKind::PutRef: return DISPATCH_PROPERTYPUTREF;
    default: return DISPATCH_METHOD;
  }
}

// The arguments of a call as automation wants them: last first.
class Arguments {
 public:
  explicit Arguments(std::span<const Variant> arguments) {
    m_owners.reserve(arguments.size());
    m_values.reserve(arguments.size());
    for (auto at = arguments.rbegin(); at != arguments.rend(); ++at) {
      m_owners.push_back(ToVariant(*at));
      m_values.push_back(m_owners.back().get());
    }
  }
  VARIANTARG* data() { return m_values.data(); }
  UINT size() const { return static_cast<UINT>(m_values.size()); }

 private:
  std::vector<OleVariant> m_owners;
  std::vector<VARIANTARG> m_values;
};

bool KnowsName(ITypeInfo* type, std::string_view name, DISPID id) {
  std::wstring wide = Wide(name);
  LPOLESTR text = wide.data();
  MEMBERID member = DISPID_UNKNOWN;
  return SUCCEEDED(type->GetIDsOfNames(&text, 1, &member)) && member == id;
}

}  // namespace

void InstallCallHook(CallHook* hook) { g_hook = hook; }

AutomationObject::AutomationObject(IDispatch* object) : m_object(object), m_extended(m_object.As<IDispatchEx>()) {}

// The last count of an object runs what its class does at its end.
AutomationObject::~AutomationObject() {
  const auto release = [this] {
    m_type.reset();
    m_extended.reset();
    m_object.reset();
  };
  if (g_hook)
    g_hook->Around(std::ref(release));
  else
    release();
}

unsigned long AutomationObject::Lookups() { return g_lookups; }

Variant AutomationObject::Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) {
  return Outside([&] { return Use(name, kind, arguments); });
}

bool AutomationObject::Has(std::string_view name) {
  return Outside([&] { return IdOf(name).has_value(); });
}

Variant AutomationObject::Use(std::string_view name, CallKind kind, std::span<const Variant> arguments) {
  const auto id = IdOf(name);
  if (!id) throw Error(errors::MemberNotSupported);
  Arguments values(arguments);
  DISPID putId = DISPID_PROPERTYPUT;
  const bool put = kind == CallKind::Put || kind == CallKind::PutRef;
  DISPPARAMS parameters{values.data(), put ? &putId : nullptr, values.size(), put ? 1u : 0u};
  OleVariant result;
  ExcepInfo info;
  SetErrorInfo(0, nullptr);
  const HRESULT code = Call(*id, FlagsOf(kind), parameters, put ? nullptr : result.put(), info.put());
  if (FAILED(code)) throw ErrorFromCode(code, &info);
  return FromVariant(result.get());
}

// Nothing for an unknown name; raises for any other failure, so that a busy host is not taken for one without members.
std::optional<DISPID> AutomationObject::IdOf(std::string_view name) {
  LearnType();
  IdsOfType* known = m_typeId ? &KnownIds(*m_typeId) : nullptr;
  const std::string lower = LowerName(name);
  if (known)
    if (const auto found = known->find(lower); found != known->end()) return found->second;
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = LookUp(name, &id);
  if (code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND) return std::nullopt;
  Check(code);
  if (known && KnowsName(m_type.get(), name, id)) known->emplace(lower, id);
  return id;
}

HRESULT AutomationObject::LookUp(std::string_view name, DISPID* id) {
  ++g_lookups;
  std::wstring wide = Wide(name);
  SetErrorInfo(0, nullptr);
  if (m_extended) {
    BStr text(name);
    return m_extended->GetDispID(text.get(), fdexNameCaseInsensitive, id);
  }
  LPOLESTR text = wide.data();
  return m_object->GetIDsOfNames(IID_NULL, &text, 1, kLocale, id);
}

HRESULT AutomationObject::Call(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info) {
  if (m_extended) return m_extended->InvokeEx(id, kLocale, flags, &parameters, result, info, nullptr);
  return m_object->Invoke(id, IID_NULL, kLocale, flags, &parameters, result, info, nullptr);
}

void AutomationObject::LearnType() {
  if (m_typeKnown || m_extended) return;
  m_typeKnown = true;
  UINT count = 0;
  if (FAILED(m_object->GetTypeInfoCount(&count)) || count == 0) return;
  if (FAILED(m_object->GetTypeInfo(0, kLocale, m_type.put())) || !m_type) return;
  TYPEATTR* attributes = nullptr;
  if (FAILED(m_type->GetTypeAttr(&attributes))) return;
  if (!IsEqualGUID(attributes->guid, GUID_NULL)) m_typeId = attributes->guid;
  m_type->ReleaseTypeAttr(attributes);
}

}  // namespace pellora::ole
