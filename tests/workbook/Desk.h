#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/Convert.h"
#include "core/Error.h"
#include "workbook/Document.h"
#include "workbook/Host.h"

namespace pellora::workbook {

/// A host and short ways to use its objects as a macro would.
class Desk : public ::testing::Test {
 protected:
  Desk() : app(host.Application()) {}

  static Variant Get(const DispatchPtr& object, std::string_view name, std::initializer_list<Variant> arguments = {}) {
    return object->Invoke(name, CallKind::Get, std::span(arguments.begin(), arguments.size()));
  }
  static DispatchPtr Object(const DispatchPtr& object, std::string_view name,
                            std::initializer_list<Variant> arguments = {}) {
    return Get(object, name, arguments).Object();
  }
  static void Put(const DispatchPtr& object, std::string_view name, const Variant& value) {
    object->Invoke(name, CallKind::Put, std::span(&value, 1));
  }
  DispatchPtr Range(std::string_view text) { return Object(app, "Range", {text}); }
  std::string Address(const DispatchPtr& range) { return ToText(Get(range, "Address")); }
  std::string Address(std::string_view text) { return Address(Range(text)); }
  DispatchPtr Sheet(std::string_view name) { return Object(app, "Worksheets", {name}); }

  /// The error number of an act, 0 when it succeeds.
  template <class Act>
  static std::int32_t NumberOf(Act act) {
    try {
      act();
      return 0;
    } catch (const Error& error) {
      return error.Number();
    }
  }

  Host host;
  DispatchPtr app;
  Document& document = host.document();
};

}  // namespace pellora::workbook
