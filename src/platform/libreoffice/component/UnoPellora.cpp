#include "platform/libreoffice/component/UnoPellora.h"

#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/beans/theIntrospection.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <cppuhelper/queryinterface.hxx>
#include <utility>
#include <vector>

#include "automation/ArgumentOrder.h"
#include "core/Convert.h"
#include "platform/libreoffice/component/BasicErrors.h"
#include "platform/libreoffice/component/CallArguments.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/UnoObject.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;
namespace beans = com::sun::star::beans;
namespace lang = com::sun::star::lang;
namespace script = com::sun::star::script;
namespace reflection = com::sun::star::reflection;

// A reference to nothing stands for a null value elsewhere in the program; here it lets an application go. An
// application is to know its document, whose end alone is its own.
Variant ApplicationIn(const uno::Any& value, const uno::Reference<uno::XComponentContext>& context) {
  if (value.getValueTypeClass() != uno::TypeClass_INTERFACE) return FromAny(value, context);
  return ToDispatch(uno::Reference<uno::XInterface>(value, uno::UNO_QUERY), context);
}

/// Counts a call that is carried out.
class Running {
 public:
  explicit Running(std::atomic<int>& calls) : m_calls(calls) { ++m_calls; }
  ~Running() { --m_calls; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  std::atomic<int>& m_calls;
};

/// Makes up for the program's end when that came during a call.
class EndKept {
 public:
  explicit EndKept(LibraryState* state) : m_state(state) {}
  ~EndKept() {
    if (m_state && m_state->HasEnded()) m_state->OfficeEnds();
  }
  EndKept(const EndKept&) = delete;
  EndKept& operator=(const EndKept&) = delete;

 private:
  LibraryState* m_state;
};

const ClassMember& KnownMember(const rtl::OUString& name, bool isMethod) {
  const ClassMember* const member = FindClassMember(name);
  if (!member || member->IsMethod() != isMethod) throw Error(errors::MemberNotSupported);
  return *member;
}

uno::Type TypeOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::Integer: return cppu::UnoType<sal_Int16>::get();
    case ValueKind::Double: return cppu::UnoType<double>::get();
    case ValueKind::Text: break;
  }
  return cppu::UnoType<rtl::OUString>::get();
}

uno::Type ResultTypeOf(MemberId id) {
  switch (id) {
    case MemberId::CreateNewProject: return cppu::UnoType<bool>::get();
    case MemberId::AddNewSymbol: return cppu::UnoType<sal_Int16>::get();
    case MemberId::ErrNumber: return cppu::UnoType<sal_Int32>::get();
    case MemberId::UnloadfrmMaster: return cppu::UnoType<void>::get();
    case MemberId::ObjExcelApplication:
    case MemberId::ExcelApplication: return cppu::UnoType<uno::Any>::get();
    default: return cppu::UnoType<rtl::OUString>::get();
  }
}

script::InvocationInfo InfoOf(const ClassMember& member) {
  const auto count = static_cast<sal_Int32>(member.parameters.size());
  script::InvocationInfo info;
  info.aName = Wide(member.name);
  info.eMemberType = member.IsMethod() ? script::MemberType_METHOD : script::MemberType_PROPERTY;
  info.PropertyAttribute = member.kind == MemberKind::ReadOnlyProperty ? beans::PropertyAttribute::READONLY : 0;
  info.aType = ResultTypeOf(member.id);
  info.aParamTypes.realloc(count);
  info.aParamModes.realloc(count);
  for (sal_Int32 i = 0; i < count; ++i) {
    info.aParamTypes.getArray()[i] = TypeOf(member.parameters[static_cast<std::size_t>(i)].kind);
    info.aParamModes.getArray()[i] = reflection::ParamMode_INOUT;
  }
  return info;
}

}  // namespace

rtl::Reference<UnoPellora> UnoPellora::Create(const Context& context) {
  try {
    // The state is made, and looked for, by one thread at a time.
    const mGlobal::ThreadClaim thisThread;
    return new UnoPellora(context, LibraryState::Acquire(context));
  } catch (...) {
    throw Error(errors::Component(100), "Pellora.cPellora.Class_Initialize", "cPellora component failure");
  }
}

/// Forgets the last failure before and after a body: a call that was refused while a dialog was up is no failure of the
/// dialog's own call. One that the body ends with is remembered after that.
class UnoPellora::Succeeding {
 public:
  explicit Succeeding(UnoPellora& object) : m_object(object) { m_object.Remember(Error(0, {}, {})); }
  ~Succeeding() { m_object.Remember(Error(0, {}, {})); }
  Succeeding(const Succeeding&) = delete;
  Succeeding& operator=(const Succeeding&) = delete;

 private:
  UnoPellora& m_object;
};

UnoPellora::UnoPellora(const Context& context, std::shared_ptr<LibraryState> state)
    : m_context(context),
      m_state(std::move(state)),
      m_object(std::make_unique<cPellora>()),
      m_membership(m_state.get(), *this) {}

UnoPellora::~UnoPellora() {
  // From here on nobody else touches the object within.
  m_membership.Leave();
  try {
    // The platform goes by the thread that has claimed the library: another one may be making a new platform.
    const mGlobal::ThreadClaim thisThread;
    m_object.reset();
    m_state.reset();
  } catch (const Error&) {
    if (m_state) LibraryState::Bury(m_state, m_object);
  }
}

rtl::OUString UnoPellora::ImplementationName() { return "Pellora.UnoPellora"; }
rtl::OUString UnoPellora::ServiceName() { return "Pellora.cPellora"; }

uno::Any UnoPellora::queryInterface(const uno::Type& type) {
  const uno::Any own = cppu::queryInterface(type, static_cast<::Pellora::XcPellora*>(this));
  return own.hasValue() ? own : UnoPelloraBase::queryInterface(type);
}

template <class Body>
auto UnoPellora::Run(Body&& body) {
  // The caller may release its last reference while a dialog is up.
  const rtl::Reference<UnoPellora> self(this);
  const EndKept end(m_state.get());
  const Running running(m_running);
  try {
    const mGlobal::ThreadClaim thisThread;
    if (m_state) m_state->LetBuriedGo();
    const Succeeding succeeding(*this);
    const ScreensKept screens(m_context);
    return body();
  } catch (...) {
    const Error error = Caught();
    Remember(error);
    throw error;
  }
}

void UnoPellora::Remember(const Error& last) {
  const std::lock_guard lock(m_lastMutex);
  m_last = last;
}

Error UnoPellora::Last() {
  const std::lock_guard lock(m_lastMutex);
  return m_last;
}

template <class Body>
auto UnoPellora::RunForBasic(Body&& body) {
  const rtl::Reference<UnoPellora> self(this);
  try {
    return Run(std::forward<Body>(body));
  } catch (const Error& error) {
    throw WrappedForBasic(error, Self());
  }
}

template <class Body>
auto UnoPellora::RunForCallers(Body&& body) {
  const rtl::Reference<UnoPellora> self(this);
  try {
    return Run(std::forward<Body>(body));
  } catch (const Error& error) {
    throw ForCallers(error, Self());
  }
}

cPellora& UnoPellora::Object() {
  if (!m_object) throw Error(errors::InvalidCall);
  return *m_object;
}

uno::Reference<uno::XInterface> UnoPellora::Self() { return static_cast<cppu::OWeakObject*>(this); }

std::unique_ptr<cPellora> UnoPellora::HandOver() noexcept { return IsRunning() ? nullptr : std::move(m_object); }

uno::Reference<beans::XIntrospectionAccess> UnoPellora::getIntrospection() {
  // Python uses the answer without a look: none would end the process.
  return beans::theIntrospection::get(m_context)->inspect(uno::Any(Self()));
}

uno::Any UnoPellora::invoke(const rtl::OUString& name, const uno::Sequence<uno::Any>& given,
                            uno::Sequence<sal_Int16>& positions, uno::Sequence<uno::Any>& written) {
  return RunForBasic([&] {
    const ClassMember& member = KnownMember(name, true);
    CallArguments arguments(member, given, m_context);
    bool writesBack = false;
    const uno::Any result = Call(member, arguments, writesBack);
    if (writesBack) arguments.WriteBack(positions, written);
    return result;
  });
}

void UnoPellora::setValue(const rtl::OUString& name, const uno::Any& value) {
  RunForBasic([&] { Put(KnownMember(name, false).id, value); });
}

uno::Any UnoPellora::getValue(const rtl::OUString& name) {
  const rtl::Reference<UnoPellora> self(this);
  const ClassMember* const member = FindClassMember(name);
  // What the last call left is read without being a call itself.
  if (member && member->kind == MemberKind::ReadOnlyProperty) return Get(member->id);
  try {
    return Run([&] { return Get(KnownMember(name, false).id); });
  } catch (const Error& error) {
    throw ForBasic(error, Self());
  }
}

sal_Bool UnoPellora::hasMethod(const rtl::OUString& name) {
  const ClassMember* const member = FindClassMember(name);
  return member && member->IsMethod();
}

sal_Bool UnoPellora::hasProperty(const rtl::OUString& name) {
  const ClassMember* const member = FindClassMember(name);
  return member && !member->IsMethod();
}

uno::Sequence<rtl::OUString> UnoPellora::getMemberNames() {
  std::vector<rtl::OUString> names;
  for (const ClassMember& member : ClassMembers()) names.push_back(Wide(member.name));
  return {names.data(), static_cast<sal_Int32>(names.size())};
}

uno::Sequence<script::InvocationInfo> UnoPellora::getInfo() {
  std::vector<script::InvocationInfo> all;
  for (const ClassMember& member : ClassMembers()) all.push_back(InfoOf(member));
  return {all.data(), static_cast<sal_Int32>(all.size())};
}

script::InvocationInfo UnoPellora::getInfoForName(const rtl::OUString& name, sal_Bool exact) {
  const ClassMember* const member = FindClassMember(name);
  if (!member || (exact && Wide(member->name) != name && NameToKeep(*member) != name))
    throw lang::IllegalArgumentException("There is no such member.", Self(), 0);
  return InfoOf(*member);
}

rtl::OUString UnoPellora::getExactName(const rtl::OUString& approximateName) {
  const ClassMember* const member = FindClassMember(approximateName);
  return member ? NameToKeep(*member) : rtl::OUString();
}

uno::Sequence<rtl::OUString> UnoPellora::getSupportedServiceNames() {
  const rtl::OUString name = ServiceName();
  return {&name, 1};
}

uno::Any UnoPellora::Call(const ClassMember& member, CallArguments& arguments, bool& writesBack) {
  switch (member.id) {
    case MemberId::CreateNewProject: return CallCreateNewProject(arguments, writesBack);
    case MemberId::AddNewSymbol: writesBack = true; return CallAddNewSymbol(arguments);
    case MemberId::ShowRefEditInterface: return uno::Any(Wide(Object().ShowRefEditInterface()));
    default: Object().UnloadfrmMaster(); return {};
  }
}

uno::Any UnoPellora::CallCreateNewProject(CallArguments& arguments, bool& writesBack) {
  QuoteFields fields;
  for (std::size_t i = 0; i < kQuoteFieldOrder.size(); ++i) fields.*kQuoteFieldOrder[i] = arguments.Integer(i);
  writesBack = Object().CreateNewProject(fields);
  for (std::size_t i = 0; i < kQuoteFieldOrder.size(); ++i) arguments.Put(i, fields.*kQuoteFieldOrder[i]);
  return uno::Any(writesBack);
}

uno::Any UnoPellora::CallAddNewSymbol(CallArguments& arguments) {
  ContractRecord contract;
  for (const auto& [text, place] : kContractTextOrder) contract.*text = arguments.Text(place);
  contract.Strike = arguments.Double(kStrikePlace);
  contract.Multiplier = arguments.Double(kMultiplierPlace);
  contract.ComTypeListIndex = arguments.Integer(kComTypeListIndexPlace);
  const sal_Int16 outcome = Object().AddNewSymbol(contract);
  for (const auto& [text, place] : kContractTextOrder) arguments.Put(place, contract.*text);
  arguments.Put(kStrikePlace, contract.Strike);
  arguments.Put(kMultiplierPlace, contract.Multiplier);
  arguments.Put(kComTypeListIndexPlace, contract.ComTypeListIndex);
  return uno::Any(outcome);
}

uno::Any UnoPellora::Get(MemberId id) {
  switch (id) {
    case MemberId::RefEditInputs: return uno::Any(Wide(Object().RefEditInputs()));
    case MemberId::ErrNumber: return uno::Any(getErrNumber());
    case MemberId::ErrSource: return uno::Any(getErrSource());
    case MemberId::ErrDescription: return uno::Any(getErrDescription());
    default: return uno::Any(FromDispatch(Object().ExcelApplication()));
  }
}

void UnoPellora::Put(MemberId id, const uno::Any& value) {
  switch (id) {
    case MemberId::ObjExcelApplication:
    case MemberId::ExcelApplication: Object().ExcelApplication(ApplicationIn(value, m_context)); break;
    case MemberId::RefEditInputs: Object().RefEditInputs(ToText(FromAny(value, m_context))); break;
    default: throw Error(errors::MemberNotSupported);
  }
}

uno::Reference<uno::XInterface> UnoPellora::getObjExcelApplication() {
  return RunForCallers([&] { return FromDispatch(Object().m_ObjExcelApplication()); });
}

void UnoPellora::setObjExcelApplication(const uno::Reference<uno::XInterface>& application) {
  RunForCallers([&] { Object().ExcelApplication(ApplicationIn(uno::Any(application), m_context)); });
}

rtl::OUString UnoPellora::getRefEditInputs() {
  return RunForCallers([&] { return Wide(Object().RefEditInputs()); });
}

void UnoPellora::setRefEditInputs(const rtl::OUString& address) {
  RunForCallers([&] { Object().RefEditInputs(Narrow(address)); });
}

uno::Any UnoPellora::getExcelApplication() { return uno::Any(getObjExcelApplication()); }

void UnoPellora::setExcelApplication(const uno::Any& application) {
  RunForCallers([&] { Object().ExcelApplication(ApplicationIn(application, m_context)); });
}

sal_Bool UnoPellora::CreateNewProject(sal_Int16& AskPrice, sal_Int16& AskSize, sal_Int16& BidPrice, sal_Int16& BidSize,
                                      sal_Int16& ClosePrice, sal_Int16& HighTick, sal_Int16& LastPrice,
                                      sal_Int16& LastSize, sal_Int16& LowTick, sal_Int16& Volume) {
  sal_Int16* const variables[] = {&AskPrice, &AskSize,   &BidPrice, &BidSize, &ClosePrice,
                                  &HighTick, &LastPrice, &LastSize, &LowTick, &Volume};
  return RunForCallers([&] {
    QuoteFields fields;
    for (std::size_t i = 0; i < kQuoteFieldOrder.size(); ++i) fields.*kQuoteFieldOrder[i] = *variables[i];
    const bool answer = Object().CreateNewProject(fields);
    for (std::size_t i = 0; answer && i < kQuoteFieldOrder.size(); ++i) *variables[i] = fields.*kQuoteFieldOrder[i];
    return answer;
  });
}

sal_Int16 UnoPellora::AddNewSymbol(rtl::OUString& Symbol, rtl::OUString& TypeSymbol, rtl::OUString& Expiry,
                                   double& Strike, rtl::OUString& Right, double& Multiplier, rtl::OUString& Exchange,
                                   rtl::OUString& PrimaryExchange, rtl::OUString& TypeCurrency,
                                   sal_Int16& ComTypeListIndex) {
  rtl::OUString* const variables[] = {&Symbol,   &TypeSymbol,      &Expiry,      &Right,
                                      &Exchange, &PrimaryExchange, &TypeCurrency};
  return RunForCallers([&] {
    ContractRecord contract;
    for (std::size_t i = 0; i < kContractTextOrder.size(); ++i)
      contract.*kContractTextOrder[i].text = Narrow(*variables[i]);
    contract.Strike = Strike;
    contract.Multiplier = Multiplier;
    contract.ComTypeListIndex = ComTypeListIndex;
    const sal_Int16 outcome = Object().AddNewSymbol(contract);
    for (std::size_t i = 0; i < kContractTextOrder.size(); ++i)
      *variables[i] = Wide(contract.*kContractTextOrder[i].text);
    Strike = contract.Strike;
    Multiplier = contract.Multiplier;
    ComTypeListIndex = contract.ComTypeListIndex;
    return outcome;
  });
}

rtl::OUString UnoPellora::ShowRefEditInterface() {
  return RunForCallers([&] { return Wide(Object().ShowRefEditInterface()); });
}

void UnoPellora::UnloadfrmMaster() {
  RunForCallers([&] { Object().UnloadfrmMaster(); });
}

sal_Int32 UnoPellora::getErrNumber() { return Last().Number(); }
rtl::OUString UnoPellora::getErrSource() { return Wide(Last().Source()); }
rtl::OUString UnoPellora::getErrDescription() { return Wide(Last().Description()); }

}  // namespace pellora::libreoffice
