#pragma once

#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/Dispatch.h"
#include "core/Error.h"
#include "core/Text.h"

namespace pellora::ole::test {

/// An object of the library that notes how it is used and answers what it is told.
class RecordingObject : public Dispatch {
 public:
  explicit RecordingObject(std::set<std::string> members = {"Value", "Range", "Total"})
      : m_members(std::move(members)) {}

  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> arguments) override {
    this->name = name;
    this->kind = kind;
    this->arguments.assign(arguments.begin(), arguments.end());
    ++calls;
    return answer ? answer() : Variant();
  }

  bool Has(std::string_view name) override {
    for (const auto& member : m_members)
      if (EqualAsciiNoCase(member, name)) return true;
    return false;
  }

  std::function<Variant()> answer;
  std::string name;
  CallKind kind = CallKind::Call;
  std::vector<Variant> arguments;
  int calls = 0;

 private:
  std::set<std::string> m_members;
};

}  // namespace pellora::ole::test
