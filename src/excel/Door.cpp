#include "excel/Door.h"

#include <chrono>
#include <thread>
#include <vector>

#include "core/Convert.h"
#include "core/Error.h"

namespace pellora::excel {
namespace {

constexpr int kReadTries = 6;
constexpr int kPauseMilliseconds = 180;

struct State {
  std::uint64_t calls = 0;
  CallObserver observer;
  Waiter waiter;
};

State& TheState() {
  static State state;
  return state;
}

void Pause() {
  if (TheState().waiter)
    TheState().waiter(kPauseMilliseconds);
  else
    std::this_thread::sleep_for(std::chrono::milliseconds(kPauseMilliseconds));
}

}  // namespace

Variant Use(const DispatchPtr& object, CallKind kind, std::string_view name, std::span<const Variant> arguments) {
  if (!object) throw Error(errors::ObjectNotSet);
  for (int tries = 1;; ++tries) {
    ++TheState().calls;
    if (TheState().observer) TheState().observer(kind, name);
    try {
      return object->Invoke(name, kind, arguments);
    } catch (const Error& error) {
      if (kind != CallKind::Get || !IsBusy(error.Number()) || tries == kReadTries) throw;
    }
    Pause();
  }
}

std::uint64_t CallCount() { return TheState().calls; }
void ObserveCalls(CallObserver observer) { TheState().observer = std::move(observer); }
void ReplaceWaiter(Waiter waiter) { TheState().waiter = std::move(waiter); }

Variant Object::Get(std::string_view name, std::initializer_list<Variant> arguments) const {
  return Use(m_object, CallKind::Get, name, {arguments.begin(), arguments.size()});
}

void Object::Put(std::string_view name, const Variant& value, std::initializer_list<Variant> arguments) const {
  std::vector<Variant> all(arguments);
  all.push_back(value);
  Use(m_object, CallKind::Put, name, all);
}

Variant Object::Call(std::string_view name, std::initializer_list<Variant> arguments) const {
  return Use(m_object, CallKind::Call, name, {arguments.begin(), arguments.size()});
}

DispatchPtr Object::GetObject(std::string_view name, std::initializer_list<Variant> arguments) const {
  return ToObject(Get(name, arguments));
}

}  // namespace pellora::excel
