#include "automation/cPellora.h"

#include <array>
#include <utility>

#include "contract/SecurityTypes.h"
#include "contract/frmAddTicker.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "excel/Application.h"
#include "project/frmNewProject.h"
#include "support/CAppSettings.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

constexpr std::string_view kClass = "Pellora.cPellora.";
constexpr std::int32_t kComponentFailure = errors::Component(100);

constexpr std::int16_t kInsert = 1;
constexpr std::int16_t kCancel = 2;
constexpr std::int16_t kInsertNew = 4;

struct ProjectField {
  std::int16_t QuoteFields::*field;
  CheckBox frmNewProject::*box;
};

constexpr std::array kProjectFields = {
    ProjectField{&QuoteFields::AskPrice, &frmNewProject::chkAskPrice},
    ProjectField{&QuoteFields::AskSize, &frmNewProject::chkAskSize},
    ProjectField{&QuoteFields::BidPrice, &frmNewProject::chkBidPrice},
    ProjectField{&QuoteFields::BidSize, &frmNewProject::chkBidSize},
    ProjectField{&QuoteFields::ClosePrice, &frmNewProject::chkClose},
    ProjectField{&QuoteFields::HighTick, &frmNewProject::chkHigh},
    ProjectField{&QuoteFields::LastPrice, &frmNewProject::chkLastPrice},
    ProjectField{&QuoteFields::LastSize, &frmNewProject::chkLastSize},
    ProjectField{&QuoteFields::LowTick, &frmNewProject::chkLow},
    ProjectField{&QuoteFields::Volume, &frmNewProject::chkVolume},
};

/// Lends the contract dialog the settings store, and takes it back whichever way the call ends.
class LentSettings {
 public:
  explicit LentSettings(frmAddTicker& form) : m_form(form) { m_form.frmAppSettings(mGlobal::AppSettings); }
  ~LentSettings() { m_form.frmAppSettings(nullptr); }
  LentSettings(const LentSettings&) = delete;
  LentSettings& operator=(const LentSettings&) = delete;

 private:
  frmAddTicker& m_form;
};

[[noreturn]] void RaiseFailure(std::string_view method) {
  throw Error(kComponentFailure, std::string(kClass) + std::string(method), "cPellora component failure");
}

// A method lets the host work while a dialog is up, also while it reports an error: what the host calls then, on
// whichever object, must not pull a form away from under it, nor show a second one beside it.
void RefuseDuringACall() {
  if (!mGlobal::Call::UnderWay()) return;
  mGlobal::CurrentPlatform().toolkit.BringToFront();
  throw Error(errors::InvalidCall);
}

// A tag's number, 0 for an empty one.
double TagValue(const Form& form) { return form.Tag().empty() ? 0 : Val(form.Tag()); }

void Clear(ContractRecord& contract) {
  const std::int16_t type = contract.ComTypeListIndex;
  contract = {};
  contract.ComTypeListIndex = type;
}

// Copies what the type has of a contract; the rest stays cleared. Strike is nobody's field.
void TakeContract(frmAddTicker& form, ContractRecord& contract) {
  const SecurityType* type = FindSecurityType(form.ComType.Text());
  if (!type) return;
  contract.TypeSymbol = type->typeSymbol;
  contract.Symbol = FieldText(form, type->symbol);
  contract.Expiry = FieldText(form, type->expiry);
  contract.Right = FieldText(form, type->right);
  contract.Exchange = FieldText(form, type->exchange);
  contract.PrimaryExchange = FieldText(form, type->primaryExchange);
  contract.TypeCurrency = FieldText(form, type->currency);
  if (type->multiplier) contract.Multiplier = TextToDouble(FieldText(form, type->multiplier));
}

}  // namespace

template <class Body>
auto cPellora::Guarded(std::string_view method, Body&& body) {
  try {
    const mGlobal::ThreadClaim thisThread;
    RefuseDuringACall();
    const mGlobal::Call call(m_errorHandler, m_appSettings);
    UseOwnServices();
    return body();
  } catch (...) {
    RaiseFailure(method);
  }
}

// An object may be made while another one shows its dialog.
cPellora::cPellora() {
  try {
    const mGlobal::ThreadClaim thisThread;
    Class_Initialize();
  } catch (...) {
    RaiseFailure("Class_Initialize");
  }
}

cPellora::~cPellora() { Class_Terminate(); }

void cPellora::Class_Initialize() {
  // Without a platform none of the services could do its work: better to fail here than at the first dialog.
  const auto& platform = mGlobal::CurrentPlatform();
  // Where windows belong to the thread that made them, the object's do as long as it lives.
  if (platform.oneThread) m_thread.emplace();
  m_errorHandler = std::make_shared<CErrorHandler>();
  m_errorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
  m_appSettings = std::make_shared<CAppSettings>();
  m_appSettings->Init("CORVANE", "Vantix");
  mGlobal::ErrorHandler = m_errorHandler;
  mGlobal::AppSettings = m_appSettings;
}

void cPellora::Class_Terminate() noexcept {
  try {
    UseOwnServices();
    m_frmAddRibbon.reset();
  } catch (...) {
    // An object that is let go has nobody left to tell.
  }
  // Another object's call may be under way, which goes on with that one's.
  if (mGlobal::AppSettings == m_appSettings) mGlobal::AppSettings = mGlobal::Call::AppSettings();
  if (mGlobal::ErrorHandler == m_errorHandler) mGlobal::ErrorHandler = mGlobal::Call::ErrorHandler();
}

void cPellora::ExcelApplication(const Variant& application) {
  const bool isObject = application.Is(Variant::Type::Object);
  if (!isObject || (application.Object() && !excel::Application::Accepts(application.Object())))
    throw Error(errors::TypeMismatch);
  m_application = application.Object();
}

std::string cPellora::RefEditInputs() const { return TapeDialog().TapeAddress(); }
void cPellora::RefEditInputs(std::string_view address) {
  const mGlobal::Call call(m_errorHandler, m_appSettings);
  UseOwnServices();
  TapeDialog().TapeAddress(address);
}

bool cPellora::CreateNewProject(QuoteFields& fields) {
  return Guarded("CreateNewProject", [&]() -> bool {
    frmNewProject form(mGlobal::CurrentPlatform().toolkit);
    form.Show();
    if (TagValue(form) != 1) return false;
    for (const auto& entry : kProjectFields) fields.*entry.field = (form.*entry.box).Value();
    return true;
  });
}

std::int16_t cPellora::AddNewSymbol(ContractRecord& contract) {
  return Guarded("AddNewSymbol", [&]() -> std::int16_t {
    frmAddTicker form(mGlobal::CurrentPlatform().toolkit);
    const LentSettings settings(form);
    form.ComTypeListIndex(contract.ComTypeListIndex);
    Clear(contract);
    form.Show();
    const double tag = TagValue(form);
    if (tag != kInsert && tag != kInsertNew) return kCancel;
    contract.ComTypeListIndex = static_cast<std::int16_t>(form.ComType.ListIndex());
    TakeContract(form, contract);
    return ToInteger(form.Tag());
  });
}

std::string cPellora::ShowRefEditInterface() {
  return Guarded("ShowRefEditInterface", [&] {
    if (!m_frmAddRibbon) m_frmAddRibbon = std::make_unique<frmAddRibbon>(mGlobal::CurrentPlatform().toolkit);
    m_frmAddRibbon->AppSettings(mGlobal::AppSettings);
    m_frmAddRibbon->Owner(this);
    m_frmAddRibbon->Show();
    return m_frmAddRibbon->Tag();
  });
}

void cPellora::UnloadfrmMaster() {
  Guarded("UnloadfrmMaster", [&] {
    if (!m_frmAddRibbon) return;
    m_frmAddRibbon->LinkAddresses(nullptr);
    m_frmAddRibbon->AppSettings(nullptr);
    m_frmAddRibbon->Owner(nullptr);
    m_frmAddRibbon->Unload();
    m_frmAddRibbon.reset();
  });
}

void cPellora::UseOwnServices() const {
  if (!mGlobal::ErrorHandler) mGlobal::ErrorHandler = m_errorHandler;
  if (!mGlobal::AppSettings) mGlobal::AppSettings = m_appSettings;
}

frmAddRibbon& cPellora::TapeDialog() const {
  if (!m_frmAddRibbon) throw Error(errors::ObjectNotSet);
  return *m_frmAddRibbon;
}

}  // namespace pellora
