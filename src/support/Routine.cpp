#include "support/Routine.h"

#include <memory>
#include <new>
#include <optional>

#include "core/Error.h"
#include "support/CErrorHandler.h"
#include "support/Quietly.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

/// Carries an abandoned routine from the failing step to its end. Only `RunRoutine` stops it, and no routine lets it
/// out: a caller goes on after the call.
struct Abandoned {};

/// What a statement failed with, told as a run-time error; nothing when it did not fail. The exception is over when
/// this returns, so that a dialog shown for it runs outside of any handler.
std::optional<Error> Attempt(BodyRef statement) {
  try {
    statement();
    return std::nullopt;
  } catch (const Abandoned&) {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(errors::OutOfMemory);
  } catch (...) {
    return Error(errors::InternalError);
  }
}

/// What the shared handler says to a failure; it says abort when it fails itself, or is not there. The handler is held
/// meanwhile: its dialog lets the host work, which may replace or release the globals.
ErrorAction Report(const Error& failure, int line) {
  const auto handler = mGlobal::ErrorHandler;
  if (!handler) return ErrorAction::Abort;
  auto action = ErrorAction::Abort;
  Quietly([&] { action = handler->HandleError("", failure, line); });
  if (action == ErrorAction::Abort) Quietly([&] { handler->CallStackClear(); });
  return action;
}

void RunProtected(BodyRef statement, int line) {
  while (const auto failure = Attempt(statement)) {
    const auto action = Report(*failure, line);
    if (action == ErrorAction::Ignore) return;
    if (action != ErrorAction::Retry) throw Abandoned{};
  }
}

}  // namespace

void Steps::Run(BodyRef statement, int line) { RunProtected(statement, line); }

// A trace log that cannot be written must not stop the work; the handler keeps the entries right all the same.
void Routines::Push(std::string_view name, std::size_t count) const noexcept {
  const auto handler = mGlobal::ErrorHandler;
  if (handler) Quietly([&] { handler->CallStackPush(QualifiedName(name), {}, count); });
}

void Routines::Pop() const noexcept {
  if (const auto handler = mGlobal::ErrorHandler) Quietly([&] { handler->CallStackPop(); });
}

std::string Routines::QualifiedName(std::string_view name) const {
  constexpr std::string_view kProject = "Pellora.";
  std::string qualified;
  qualified.reserve(kProject.size() + m_objectName.size() + 1 + name.size());
  qualified.append(kProject).append(m_objectName).append(1, '.').append(name);
  return qualified;
}

bool Routines::RunRoutine(std::string_view name, BodyRef body, int line) const {
  Push(name);
  // The entry is taken off the stack it was put on, even when the shared handler is replaced meanwhile.
  const auto entered = mGlobal::ErrorHandler;
  try {
    RunProtected(body, line);
  } catch (...) {
    // Abandoned, or the memory for telling the failure ran out, which comes to the same. Where the shared handler has
    // changed meanwhile, the one that holds the entry has not been cleared yet.
    if (entered) Quietly([&] { entered->CallStackClear(); });
    return false;
  }
  if (entered) Quietly([&] { entered->CallStackPop(); });
  return true;
}

}  // namespace pellora
