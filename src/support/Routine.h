#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace pellora {

/// A reference to something callable, for the length of a call.
class BodyRef {
 public:
  template <class F>
  requires(!std::is_same_v<std::remove_cvref_t<F>, BodyRef>) BodyRef(F&& body)
      : m_body(const_cast<void*>(static_cast<const void*>(&body))),
        m_run([](void* held) { (*static_cast<std::remove_reference_t<F>*>(held))(); }) {}
  void operator()() const { m_run(m_body); }

 private:
  void* m_body;
  void (*m_run)(void*);
};

/// The statements of a routine under the error protocol. Each call runs one statement; when it fails, the shared error
/// handler reports it and its answer is carried out: retry runs the statement again, ignore passes it over, abort
/// (and a handler that fails itself, or is not there) clears the call stack and leaves the routine.
class Steps {
 public:
  /// Runs a statement. `line` is the source line that is reported.
  template <class F>
  requires std::is_void_v<std::invoke_result_t<F&>>
  void operator()(F&& statement, int line = __builtin_LINE()) {
    auto body = [&] { statement(); };
    Run(BodyRef(body), line);
  }

  /// Runs a statement that yields a value; passed over, it yields the value's default.
  template <class F>
  requires(!std::is_void_v<std::invoke_result_t<F&>>) auto operator()(F&& statement, int line = __builtin_LINE()) {
    std::remove_cvref_t<std::invoke_result_t<F&>> value{};
    auto body = [&] { value = statement(); };
    Run(BodyRef(body), line);
    return value;
  }

 private:
  friend class Routines;
  Steps() = default;
  void Run(BodyRef statement, int line);
};

/// What a class under the error protocol derives from: it knows the name under which its routines are reported,
/// "Pellora." + object + "." + routine. A routine pushes that name on entry and pops it when it ends normally; an
/// abandoned one does not pop, the stack has been cleared. Nothing that fails inside a routine leaves it.
class Routines {
 protected:
  /// `objectName` must outlive the object; a literal.
  explicit Routines(std::string_view objectName) : m_objectName(objectName) {}
  ~Routines() = default;

  /// A routine without a result: `body(Steps&)`. A failure outside of any step is reported with `line`; retry runs the
  /// whole body again, ignore ends the routine as if it had finished.
  template <class Body>
  void routine(std::string_view name, Body&& body, int line = __builtin_LINE()) const {
    auto run = [&] {
      Steps step;
      body(step);
    };
    RunRoutine(name, BodyRef(run), line);
  }

  /// A routine with a result: `body(Steps&, Result&)` fills it in; abandoned, it answers the default.
  template <class Result, class Body>
  Result routine(std::string_view name, Body&& body, int line = __builtin_LINE()) const {
    Result result{};
    auto run = [&] {
      Steps step;
      body(step, result);
    };
    return RunRoutine(name, BodyRef(run), line) ? result : Result{};
  }

  /// Puts a routine's entry on the call stack (`count` times), and takes the top entry off it, for the few routines
  /// that keep to a protocol of their own. Never fail.
  void Push(std::string_view name, std::size_t count = 1) const noexcept;
  void Pop() const noexcept;

  /// "Pellora." + object + "." + `name`.
  std::string QualifiedName(std::string_view name) const;

 private:
  /// False when the routine was abandoned.
  bool RunRoutine(std::string_view name, BodyRef body, int line) const;

  std::string_view m_objectName;
};

}  // namespace pellora
