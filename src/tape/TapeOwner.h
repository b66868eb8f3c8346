#pragma once

#include "core/Variant.h"

namespace pellora {

/// Who shows the ticker tape dialog and can reach the spreadsheet.
class TapeOwner {
 public:
  virtual ~TapeOwner() = default;
  /// The running spreadsheet program; nothing when none was handed in.
  virtual DispatchPtr ExcelApplication() = 0;
};

}  // namespace pellora
