#include "World.h"

#include <sstream>

#include "core/Convert.h"
#include "forms/ListControl.h"

namespace pellora::protocol {
namespace {

std::string Show(const Variant& value) {
  if (value.Is(Variant::Type::Error)) return "#";
  return value.IsEmpty() ? "" : ToText(value);
}

void DrawSheet(std::ostream& out, const workbook::Sheet& sheet) {
  out << "[" << sheet.name << "]\n";
  for (const auto& [place, cell] : sheet.cells) {
    out << place.row << "," << place.column << "=" << cell.formula << "|" << Show(cell.value);
    for (const auto& line : cell.format.borders)
      if (line != workbook::BorderLine()) out << " " << line.style << "/" << line.weight << "/" << line.colorIndex;
    out << " " << cell.format.interior << "\n";
  }
  for (const auto& [column, width] : sheet.columnWidths) out << column << ":" << width << "\n";
}

void DrawWorkbook(std::ostream& out, workbook::Host& host) {
  auto& document = host.document();
  for (const auto& sheet : document.sheets) DrawSheet(out, *sheet);
  out << "active " << document.sheets[document.active]->name << "\n";
  out << "updating " << host.Application()->Invoke("ScreenUpdating", CallKind::Get, {}).Boolean() << "\n";
}

void DrawList(std::ostream& out, const ListControl& list) {
  for (const auto& item : list.Items()) out << item << ";";
  out << list.ListIndex();
}

void DrawGrid(std::ostream& out, const Grid& grid) {
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int column = 0; column < grid.Cols(); ++column) out << grid.Text(row, column) << ";";
    out << grid.RowData(row) << "/";
  }
  out << grid.Row() << grid.Redraw();
}

void DrawControl(std::ostream& out, const Control& control) {
  out << control.Name() << " " << control.Caption() << " " << control.Enabled() << control.Visible() << " "
      << control.ToolTip() << " ";
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) out << box->Text() << box->AllSelected();
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) out << box->Value();
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) out << option->Value();
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) out << combo->Text() << ";";
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) DrawList(out, *list);
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) DrawGrid(out, *grid);
  if (const auto* pages = dynamic_cast<const Pages*>(&control)) out << pages->CurrentPage();
  out << "\n";
}

void DrawForm(std::ostream& out, const Form* form) {
  if (!form) return;
  for (const auto* control : form->Descendants()) DrawControl(out, *control);
  const auto* active = form->ActiveControl();
  out << form->Name() << " '" << form->Tag() << "' " << form->Caption() << " " << form->Shown() << " "
      << (active ? active->Name() : "") << "\n";
}

void DrawTapes(std::ostream& out, const cLinkAddresseses* groups) {
  if (!groups) return;
  for (const auto& group : groups->NewEnum())
    for (const auto& tape : group->NewEnum())
      out << group->GroupKey() << "|" << tape->SborKey() << "|" << tape->Name() << "|" << tape->Link() << "|"
          << tape->NameSize() << "|" << tape->DataRange() << "\n";
}

}  // namespace

std::unique_ptr<FormPeer> WatchedToolkit::CreatePeer(Form& form) {
  if (form.Name() == "frmErrorMessage") {
    m_outside.ReportBegins();
    return m_inner.CreatePeer(form);
  }
  m_outside.EnterOrRaise("Toolkit.CreatePeer", false);
  return std::make_unique<WatchedFormPeer>(m_inner.CreatePeer(form), m_outside);
}

World::World() {
  mGlobal::InstallPlatform(&m_platform);
  mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
  mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
  mGlobal::AppSettings = std::make_shared<CAppSettings>();
  mGlobal::AppSettings->Init("CORVANE", "Vantix");
  Watch(m_host, m_outside);
}

World::~World() { m_outside.Disarm(); }

OpenRibbon& World::Ribbon() {
  if (!m_ribbon) {
    m_ribbon = std::make_unique<OpenRibbon>(m_toolkit);
    m_ribbon->Owner(this);
    m_ribbon->AppSettings(mGlobal::AppSettings);
  }
  return *m_ribbon;
}

OpenTicker& World::Ticker() {
  if (!m_ticker) {
    m_ticker = std::make_unique<OpenTicker>(m_toolkit);
    m_ticker->frmAppSettings(mGlobal::AppSettings);
  }
  return *m_ticker;
}

OpenEditor& World::Editor() {
  if (!m_editor) {
    m_editor = std::make_unique<OpenEditor>(m_toolkit);
    m_editor->frmAppSettings(mGlobal::AppSettings);
  }
  return *m_editor;
}

frmNewProject& World::Project() {
  if (!m_project) m_project = std::make_unique<frmNewProject>(m_toolkit);
  return *m_project;
}

std::string World::Picture() {
  std::ostringstream out;
  DrawWorkbook(out, m_host);
  for (const auto& [name, value] : m_headless.registry.Dump()) {
    const auto* text = std::get_if<std::string>(&value);
    out << name << "=" << (text ? *text : "?") << "\n";
  }
  for (const Form* form : std::initializer_list<const Form*>{m_ribbon.get(), m_ticker.get(), m_editor.get()})
    DrawForm(out, form);
  DrawForm(out, m_project.get());
  if (m_ribbon) {
    DrawTapes(out, m_ribbon->LinkAddresses().get());
    out << m_ribbon->TapeAddress() << "|" << m_ribbon->DataBeginning << "\n";
  }
  for (const auto& message : user().Messages()) out << "message " << message.text << "\n";
  out << "answer " << answer << "\noutputs " << outputs << "\n";
  return out.str();
}

}  // namespace pellora::protocol
