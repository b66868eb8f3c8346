#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Convert.h"
#include "core/Dispatch.h"
#include "core/Error.h"

namespace pellora::test {

/// Stands between the dialog and the spreadsheet and writes down every call with the whole way to its object:
/// "Worksheets(Sheet1).Range(A1).Select()", or "... = value" for a property that is set. What was asked of which object
/// can be told so, and made to fail, on every host alike.
class Witness {
 public:
  DispatchPtr Wrap(DispatchPtr application) {
    return std::make_shared<Between>(m_notes, std::move(application), std::string());
  }

  /// The calls that end so, or all of them, in order.
  std::vector<std::string> Calls(std::string_view ending = {}) const {
    std::vector<std::string> found;
    for (const auto& call : m_notes->calls)
      if (call.ends_with(ending)) found.push_back(call);
    return found;
  }
  /// How many calls were made, in all or to the member of that name, whichever object's.
  std::uint64_t Count() const { return m_notes->calls.size(); }
  std::uint64_t Count(std::string_view member) const {
    const auto made = m_notes->counts.find(member);
    return made == m_notes->counts.end() ? 0 : made->second;
  }
  void Forget() {
    m_notes->calls.clear();
    m_notes->counts.clear();
  }

  /// Decides before each call, by the member's name and the call's number since `Forget`, from 1, whether it fails
  /// with 1004. Empty for none.
  std::function<bool(std::string_view member, std::uint64_t call)>& FailWhen() { return m_notes->fails; }

  /// From now on the call of that text fails so many times (every time when 0) with 1004.
  void Fail(std::string_view call, int times = 0) {
    m_notes->failing = call;
    m_notes->failures = times;
  }
  void FailNothing() { m_notes->failing.clear(); }

 private:
  struct Notes {
    std::vector<std::string> calls;
    std::map<std::string, std::uint64_t, std::less<>> counts;
    std::function<bool(std::string_view, std::uint64_t)> fails;
    std::string failing;
    int failures = 0;
  };

  class Between : public Dispatch {
   public:
    Between(std::shared_ptr<Notes> notes, DispatchPtr object, std::string way)
        : m_notes(std::move(notes)), m_object(std::move(object)), m_way(std::move(way)) {}

    Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override {
      const auto call = m_way + Describe(name, kind, arguments);
      m_notes->calls.push_back(call);
      ++m_notes->counts[std::string(name)];
      if (m_notes->fails && m_notes->fails(name, m_notes->calls.size())) throw Error(errors::ApplicationDefined);
      if (call == m_notes->failing) {
        if (m_notes->failures > 0 && --m_notes->failures == 0) m_notes->failing.clear();
        throw Error(errors::ApplicationDefined);
      }
      std::vector<Variant> plain;
      for (const auto& argument : arguments) plain.push_back(Unwrapped(argument));
      const auto answer = m_object->Invoke(name, kind, plain);
      if (!answer.Is(Variant::Type::Object) || !answer.Object()) return answer;
      return Variant(DispatchPtr(std::make_shared<Between>(m_notes, answer.Object(), call + ".")));
    }

    bool Has(std::string_view name) override { return m_object->Has(name); }

   private:
    static Variant Unwrapped(const Variant& value) {
      if (!value.Is(Variant::Type::Object)) return value;
      const auto between = std::dynamic_pointer_cast<Between>(value.Object());
      return between ? Variant(between->m_object) : value;
    }
    static std::string Text(const Variant& value) {
      if (value.Is(Variant::Type::Missing)) return "-";
      return value.Is(Variant::Type::Object) ? "object" : ToText(value);
    }
    static std::string Describe(std::string_view name, CallKind kind, std::span<const Variant> arguments) {
      std::string text(name);
      if (kind == CallKind::Put) return text + " = " + Text(arguments.back());
      text += "(";
      for (std::size_t i = 0; i < arguments.size(); ++i) text += (i ? ", " : "") + Text(arguments[i]);
      return text + ")";
    }

    std::shared_ptr<Notes> m_notes;
    DispatchPtr m_object;
    std::string m_way;
  };

  std::shared_ptr<Notes> m_notes = std::make_shared<Notes>();
};

}  // namespace pellora::test
