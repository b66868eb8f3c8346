#include "platform/windows/ole/DispatchServer.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "core/Error.h"
#include "platform/windows/ole/CallShape.h"
#include "platform/windows/ole/Convert.h"
#include "platform/windows/ole/Failure.h"

namespace pellora::ole {
namespace {

struct AsciiLess {
  using is_transparent = void;
  static char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
  bool operator()(std::string_view left, std::string_view right) const {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char a, char b) { return Lower(a) < Lower(b); });
  }
};

// Ids count from 1, in the order in which names were first asked for.
class NameTable {
 public:
  DISPID IdOf(std::string_view name) {
    const auto [at, isNew] = m_ids.try_emplace(std::string(name), static_cast<DISPID>(m_names.size() + 1));
    if (isNew) m_names.push_back(&at->first);
    return at->second;
  }
  std::string_view NameOf(DISPID id) const {
    const auto index = static_cast<std::size_t>(id) - 1;
    return id > 0 && index < m_names.size() ? std::string_view(*m_names[index]) : std::string_view();
  }

 private:
  std::map<std::string, DISPID, AsciiLess> m_ids;
  std::vector<const std::string*> m_names;
};

NameTable& Names() {
  static NameTable names;
  return names;
}

// The servers that live, by what they show and by what automation sees of them.
struct LiveServers {
  std::map<const Dispatch*, DispatchServer*> byObject;
  std::map<const IDispatch*, DispatchServer*> byServer;
};

LiveServers& Live() {
  static LiveServers servers;
  return servers;
}

}  // namespace

ComPtr<IDispatch> DispatchServer::Show(const DispatchPtr& object) {
  if (const auto found = Live().byObject.find(object.get()); found != Live().byObject.end())
    return ComPtr<IDispatch>(found->second);
  ComPtr<IDispatch> server;
  server.attach(new DispatchServer(object));
  return server;
}

// By address and not by a question to the object: another module of ours may answer that one, and its objects are not
// laid out by this module's compiler.
DispatchPtr DispatchServer::Original(IDispatch* object) {
  const auto found = Live().byServer.find(object);
  return found != Live().byServer.end() ? found->second->m_object : nullptr;
}

DispatchServer::DispatchServer(DispatchPtr object) : m_object(std::move(object)) {
  Live().byObject[m_object.get()] = this;
  Live().byServer[this] = this;
}

DispatchServer::~DispatchServer() {
  Live().byObject.erase(m_object.get());
  Live().byServer.erase(this);
}

HRESULT DispatchServer::QueryInterface(REFIID id, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ? this : nullptr;
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG DispatchServer::AddRef() noexcept { return ++m_references; }

ULONG DispatchServer::Release() noexcept {
  const ULONG left = --m_references;
  if (left == 0) delete this;
  return left;
}

HRESULT DispatchServer::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT DispatchServer::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT DispatchServer::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0 || !names[0]) return E_INVALIDARG;
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  try {
    const std::string name = Narrow(names[0]);
    if (!m_object->Has(name)) return DISP_E_UNKNOWNNAME;
    ids[0] = Names().IdOf(name);
    // Names after the first are of arguments, which have none here.
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  } catch (...) {
    return ReportCaught(static_cast<EXCEPINFO*>(nullptr));
  }
}

HRESULT DispatchServer::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* info, UINT*) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (const HRESULT shape = CheckShape(parameters); FAILED(shape)) return shape;
  const auto kind = KindOf(flags);
  if (!kind) return E_INVALIDARG;
  if (!NamesOnlyPutValue(*parameters, flags)) return DISP_E_NONAMEDARGS;
  try {
    // The caller may release its last reference while its call runs.
    const ComPtr<IDispatch> self(this);
    if (NameOf(id).empty()) return DISP_E_MEMBERNOTFOUND;
    const Variant answer = Use(id, *kind, *parameters);
    if (result) ToVariant(answer, result);
    return S_OK;
  } catch (...) {
    return ReportCaught(info);
  }
}

std::string_view DispatchServer::NameOf(DISPID id) const {
  if (id != DISPID_VALUE) return Names().NameOf(id);
  for (const std::string_view name : {"_Default", "Value"})
    if (m_object->Has(name)) return name;
  return {};
}

Variant DispatchServer::Use(DISPID id, CallKind kind, const DISPPARAMS& parameters) {
  std::vector<Variant> arguments;
  arguments.reserve(parameters.cArgs);
  for (UINT i = parameters.cArgs; i-- > 0;) arguments.push_back(FromVariant(parameters.rgvarg[i]));
  const bool put = kind == CallKind::Put || kind == CallKind::PutRef;
  if (put && arguments.empty()) throw Error(errors::WrongArgumentCount);
  return m_object->Invoke(NameOf(id), kind, arguments);
}

}  // namespace pellora::ole
