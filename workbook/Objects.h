#pragma once

#include "workbook/Object.h"

namespace pellora::workbook {

/// The application object. Beside the model's members it has the stand-in's own: `Open`, `Save`, `SaveAs`,
/// `CallCount`, `Calls`, `ResetCalls` and `AddWorksheet`.
class ApplicationObject final : public ObjectOf<ApplicationObject> {
 public:
  static constexpr std::string_view kName = "Application";
  static std::span<const Member<ApplicationObject>> Members();
  using ObjectOf::ObjectOf;
};

/// The open workbook.
class WorkbookObject final : public ObjectOf<WorkbookObject> {
 public:
  static constexpr std::string_view kName = "Workbook";
  static std::span<const Member<WorkbookObject>> Members();
  using ObjectOf::ObjectOf;
};

/// The sheets of the open workbook.
class WorksheetsObject final : public ObjectOf<WorksheetsObject> {
 public:
  static constexpr std::string_view kName = "Worksheets";
  static std::span<const Member<WorksheetsObject>> Members();
  using ObjectOf::ObjectOf;
};

/// One sheet.
class WorksheetObject final : public ObjectOf<WorksheetObject> {
 public:
  static constexpr std::string_view kName = "Worksheet";
  static std::span<const Member<WorksheetObject>> Members();
  WorksheetObject(StatePtr state, std::shared_ptr<Sheet> sheet)
      : ObjectOf(std::move(state)), m_sheet(std::move(sheet)) {}
  /// Raises 424 when its workbook is no longer open.
  const std::shared_ptr<Sheet>& sheet() const;

 private:
  std::shared_ptr<Sheet> m_sheet;
};

/// The names of the open workbook.
class NamesObject final : public ObjectOf<NamesObject> {
 public:
  static constexpr std::string_view kName = "Names";
  static std::span<const Member<NamesObject>> Members();
  using ObjectOf::ObjectOf;
};

/// One workbook name.
class NameObject final : public ObjectOf<NameObject> {
 public:
  static constexpr std::string_view kName = "Name";
  static std::span<const Member<NameObject>> Members();
  NameObject(StatePtr state, std::string name) : ObjectOf(std::move(state)), m_name(std::move(name)) {}
  const std::string& name() const { return m_name; }

 private:
  std::string m_name;
};

/// The sheet by name (any letter case) or number from 1; raises 9 when there is none.
std::shared_ptr<Sheet> FindSheet(const Host::State& state, const Variant& index);

Variant WrapApplication(const StatePtr& state);
Variant WrapWorkbook(const StatePtr& state);
Variant WrapWorksheet(const StatePtr& state, const std::shared_ptr<Sheet>& sheet);

}  // namespace pellora::workbook
