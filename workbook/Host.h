#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "core/Dispatch.h"

namespace pellora::workbook {

class Document;

/// A stand-in for a spreadsheet program, for demos and tests where none is installed: an application object with one
/// open workbook that answers the subset of the spreadsheet object model the library uses, with its real meaning. It
/// shows no sheet, computes link formulas only, and says so where asked (`Name` answers "Pellora embedded workbook").
///
/// Objects handed out stay valid as long as somebody holds them. Not for several threads.
class Host {
 public:
  /// An application with a new workbook of one empty sheet, "Sheet1".
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// The application object.
  DispatchPtr Application() const;

  /// The open workbook's content, for arranging and checking without going through the object model.
  Document& document();

  /// Replaces the open workbook by a file's. Raises 1004 with a plain text when it cannot be read; then the open one
  /// stays. The path is UTF-8.
  void Open(std::string_view path);
  /// Writes the open workbook as an .xlsx file; written beside and put in place at once. Raises 1004.
  void Save(std::string_view path);

  /// From now on the user picks the range of that address, such as "Sheet1!B3", when the application's `InputBox` asks
  /// for one; with none the user cancels, as at first.
  void Pick(std::string_view address);

  /// Calls made to the objects since the last `ResetCalls`, in all and by "Object.Member", for instance
  /// "Range.Value".
  std::uint64_t CallCount() const;
  const std::map<std::string, std::uint64_t>& Calls() const;
  void ResetCalls();

  /// Decides before each call whether it fails: answers the error number, 0 to let it through. Given
  /// "Object.Member", the kind, and the number of the call since `ResetCalls`, from 1. Empty for none.
  std::function<std::int32_t(std::string_view member, CallKind kind, std::uint64_t call)> fail;

  struct State;

 private:
  std::shared_ptr<State> m_state;
};

}  // namespace pellora::workbook
