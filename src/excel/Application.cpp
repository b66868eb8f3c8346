#include "excel/Application.h"

#include <algorithm>
#include <array>

#include "core/Convert.h"

namespace pellora::excel {

bool Application::Accepts(const DispatchPtr& object) {
  constexpr std::array<std::string_view, 7> members = {"Range",          "Intersect",  "Columns",       "ActiveSheet",
                                                       "ActiveWorkbook", "Worksheets", "ScreenUpdating"};
  return object && std::all_of(members.begin(), members.end(), [&](auto name) { return object->Has(name); });
}

Range Application::Range(std::string_view address) const { return excel::Range(GetObject("Range", {address})); }
Range Application::Intersect(const excel::Range& left, const excel::Range& right) const {
  return excel::Range(ToObject(Call("Intersect", {left.get(), right.get()})));
}
Range Application::Columns(std::int32_t column) const { return excel::Range(GetObject("Columns", {column})); }
Worksheet Application::ActiveSheet() const { return Worksheet(GetObject("ActiveSheet")); }
Workbook Application::ActiveWorkbook() const { return Workbook(GetObject("ActiveWorkbook")); }
Worksheet Application::Worksheets(std::string_view name) const { return Worksheet(GetObject("Worksheets", {name})); }
bool Application::ScreenUpdating() const { return ToBoolean(Get("ScreenUpdating")); }
void Application::ScreenUpdating(bool on) const { Put("ScreenUpdating", on); }

}  // namespace pellora::excel
