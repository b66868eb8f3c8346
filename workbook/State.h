#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/Area.h"
#include "workbook/Document.h"
#include "workbook/Host.h"

namespace pellora::workbook {

/// What the host and every object it handed out share. Lives as long as any of them.
struct Host::State : std::enable_shared_from_this<Host::State> {
  Document document;
  /// Where the workbook was opened from or last saved to; empty for a new one.
  std::string path;
  bool screenUpdating = true;
  /// Kept only: nothing is ever asked.
  bool displayAlerts = true;
  /// What the user picks when `InputBox` asks for a range, as an address; empty for a user who cancels.
  std::string picked;
  /// What is selected on each sheet; "A1" where nothing was.
  std::map<const Sheet*, std::vector<Area>> selections;

  std::uint64_t calls = 0;
  std::map<std::string, std::uint64_t> callsByMember;
  /// The host's hook; null once the host is gone.
  const std::function<std::int32_t(std::string_view, CallKind, std::uint64_t)>* fail = nullptr;

  /// Counts a call and lets the hook decide whether it fails.
  void Enter(std::string_view object, std::string_view member, CallKind kind);

  void Open(std::string_view file);
  void Save(std::string_view file);

  const std::shared_ptr<Sheet>& ActiveSheet() const { return document.sheets[document.active]; }
  /// Raises 424 for a sheet of a workbook that is no longer open.
  std::size_t IndexOf(const Sheet& sheet) const;
  void Activate(const Sheet& sheet) { document.active = IndexOf(sheet); }
};

using StatePtr = std::shared_ptr<Host::State>;

}  // namespace pellora::workbook
