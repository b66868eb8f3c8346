#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/Dispatch.h"
#include "support/mGlobal.h"
#include "tape/frmAddRibbon.h"

namespace pellora {

class CAppSettings;
class CErrorHandler;

/// Which quote fields are wanted, in the order of the interface: 0 no, 1 yes.
struct QuoteFields {
  std::int16_t AskPrice = 0;
  std::int16_t AskSize = 0;
  std::int16_t BidPrice = 0;
  std::int16_t BidSize = 0;
  std::int16_t ClosePrice = 0;
  std::int16_t HighTick = 0;
  std::int16_t LastPrice = 0;
  std::int16_t LastSize = 0;
  std::int16_t LowTick = 0;
  std::int16_t Volume = 0;
  bool operator==(const QuoteFields&) const = default;
};

/// One instrument, in the order of the interface.
struct ContractRecord {
  std::string Symbol;
  std::string TypeSymbol;
  std::string Expiry;
  double Strike = 0;
  std::string Right;
  double Multiplier = 0;
  std::string Exchange;
  std::string PrimaryExchange;
  std::string TypeCurrency;
  /// In: the security type to preselect; out: the one that was chosen.
  std::int16_t ComTypeListIndex = 0;
  bool operator==(const ContractRecord&) const = default;
};

/// The library's one public class. A workbook's macros create it, hand it the running spreadsheet application and call
/// it whenever the user must decide something; each call blocks until its dialog has closed.
///
/// Creating it makes the shared error handler and settings store anew, releasing it releases those it made. An object
/// that finds them released by another one puts its own back, so that the order in which macros let go of two objects
/// does not matter. Construction and the four methods raise 0x80040064, "cPellora component failure", with their
/// qualified name as source, whatever went wrong inside; the properties let errors through as they are. A method that
/// is called while a call is under way, of this object or of any other in the process, brings the dialog or message
/// that the user is at to the front and raises the same error; making and releasing other objects meanwhile is fine. A
/// call from another thread than the one on which the first living object was made fails too, or, where the platform
/// has no such thread, than the one that is in a call.
class cPellora : private TapeOwner {
 public:
  cPellora();
  ~cPellora();
  cPellora(const cPellora&) = delete;
  cPellora& operator=(const cPellora&) = delete;

  /// The spreadsheet application. It may be any object that answers the members the library uses
  /// (`excel::Application::Accepts`), or nothing; anything else raises 13 (type mismatch) and keeps the old one.
  DispatchPtr m_ObjExcelApplication() { return m_application; }
  void m_ObjExcelApplication(const Variant& application) { ExcelApplication(application); }
  DispatchPtr ExcelApplication() override { return m_application; }
  void ExcelApplication(const Variant& application);

  /// The tape location of the ticker tape dialog. Raise 91 (object variable not set) while there is no such dialog.
  std::string RefEditInputs() const;
  void RefEditInputs(std::string_view address);

  /// Lets the user choose quote fields. True with the choice in `fields`; false, and `fields` untouched, when
  /// cancelled.
  bool CreateNewProject(QuoteFields& fields);

  /// Lets the user describe an instrument. 1: insert, 4: insert and ask again, 2: cancelled. All of `contract` but its
  /// type is cleared before the dialog comes up, and an insert fills in what the chosen type has; `Strike` stays 0.
  /// Preselecting a type that does not exist is reported to the user and selects none; an insert then answers with
  /// type -1 and the rest cleared. When the method fails, `contract` is untouched as long as there was no dialog to
  /// show (another one is open, no platform is installed), and cleared and filled as far as the method came otherwise.
  std::int16_t AddNewSymbol(ContractRecord& contract);

  /// Shows the ticker tape dialog, which lives on between calls. "CLOSE": finished; "DATABEGINNING": the workbook is to
  /// let the user pick a range, to pass it in `RefEditInputs`, and to call again.
  std::string ShowRefEditInterface();

  /// Releases the ticker tape dialog, if there is one.
  void UnloadfrmMaster();

 private:
  template <class Body>
  auto Guarded(std::string_view method, Body&& body);
  void Class_Initialize();
  void Class_Terminate() noexcept;
  void UseOwnServices() const;
  frmAddRibbon& TapeDialog() const;

  std::optional<mGlobal::ThreadClaim> m_thread;
  DispatchPtr m_application;
  std::shared_ptr<CErrorHandler> m_errorHandler;
  std::shared_ptr<CAppSettings> m_appSettings;
  std::unique_ptr<frmAddRibbon> m_frmAddRibbon;
};

}  // namespace pellora
