#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/Convert.h"
#include "core/Dispatch.h"
#include "core/Error.h"

namespace pellora::excel {

/// A late-bound object that writes down every call and answers what the test told it to; a member without an answer
/// gives nothing as an object, so that every wrapper accepts it.
class RecordingObject : public Dispatch {
 public:
  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override {
    calls.push_back(Describe(name, kind, arguments));
    if (!failures.empty()) {
      const std::int32_t number = failures.front();
      failures.erase(failures.begin());
      if (number != 0) throw Error(number);
    }
    const auto answer = answers.find(std::string(name));
    return answer == answers.end() ? Variant(DispatchPtr()) : answer->second;
  }

  bool Has(std::string_view name) override { return members.count(std::string(name)) > 0; }

  /// "get Name(1, "a", missing)" of each call, in order.
  std::vector<std::string> calls;
  std::map<std::string, Variant> answers;
  std::map<std::string, bool> members;
  /// Error numbers with which the next calls fail; 0 lets one through.
  std::vector<std::int32_t> failures;

 private:
  static std::string Describe(const Variant& value) {
    if (value.Is(Variant::Type::Missing)) return "missing";
    if (value.Is(Variant::Type::Object)) return value.Object() ? "object" : "nothing";
    return value.Is(Variant::Type::String) ? "\"" + value.String() + "\"" : ToText(value);
  }
  static std::string Describe(std::string_view name, CallKind kind, std::span<const Variant> arguments) {
    constexpr const char* kinds[] = {"get ", "put ", "putref ", "call "};
    std::string text = kinds[static_cast<int>(kind)] + std::string(name) + "(";
    for (std::size_t i = 0; i < arguments.size(); ++i) text += (i ? ", " : "") + Describe(arguments[i]);
    return text + ")";
  }
};

using Recording = std::shared_ptr<RecordingObject>;

}  // namespace pellora::excel
