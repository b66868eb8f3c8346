#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <span>
#include <string_view>

#include "core/Dispatch.h"

namespace pellora::excel {

/// The one door through which the library calls the spreadsheet: every wrapper of this folder goes through `Use`.
/// It restores nothing by itself. A read that is turned away because the host is busy is tried again a few times
/// within about a second; a write never is. Raises 91 (object variable not set) for an object that is nothing.
Variant Use(const DispatchPtr& object, CallKind kind, std::string_view name, std::span<const Variant> arguments);

/// How many calls have gone through the door since the process began. Figures are differences of it.
std::uint64_t CallCount();

/// Hears of every call before it is made, for tests and measurements. Empty for none.
using CallObserver = std::function<void(CallKind, std::string_view name)>;
void ObserveCalls(CallObserver observer);

/// What waits between two tries of a busy read, given milliseconds. Tests put in one that only records; an empty one
/// puts the real one back.
using Waiter = std::function<void(int)>;
void ReplaceWaiter(Waiter waiter);

/// What the wrappers have in common: a reference to one object of the spreadsheet.
class Object {
 public:
  Object() = default;
  explicit Object(DispatchPtr object) : m_object(std::move(object)) {}
  const DispatchPtr& get() const { return m_object; }
  explicit operator bool() const { return m_object != nullptr; }

 protected:
  Variant Get(std::string_view name, std::initializer_list<Variant> arguments = {}) const;
  void Put(std::string_view name, const Variant& value, std::initializer_list<Variant> arguments = {}) const;
  Variant Call(std::string_view name, std::initializer_list<Variant> arguments = {}) const;
  /// As `Get`, for an answer that must be an object; raises 424 when it is none.
  DispatchPtr GetObject(std::string_view name, std::initializer_list<Variant> arguments = {}) const;

 private:
  DispatchPtr m_object;
};

}  // namespace pellora::excel
