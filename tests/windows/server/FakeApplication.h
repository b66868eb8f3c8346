#pragma once

#include <memory>

#include "core/Dispatch.h"
#include "platform/windows/ole/DispatchServer.h"

namespace pellora::windows::test {

/// An object that answers every member with nothing: enough to be taken for the spreadsheet application.
class AnswersEverything : public Dispatch {
 public:
  Variant Invoke(std::string_view, CallKind, std::span<const Variant>) override { return {}; }
  bool Has(std::string_view) override { return true; }
};

/// An object without members.
class AnswersNothing : public Dispatch {
 public:
  Variant Invoke(std::string_view, CallKind, std::span<const Variant>) override { return {}; }
  bool Has(std::string_view) override { return false; }
};

template <class Object>
ole::ComPtr<IDispatch> MakeFake() {
  return ole::DispatchServer::Show(std::make_shared<Object>());
}

}  // namespace pellora::windows::test
