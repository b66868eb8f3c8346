#include "contract/frmModifyList.h"

#include <algorithm>

#include "core/Text.h"
#include "forms/Layout.h"
#include "support/CAppSettings.h"

namespace pellora {

frmModifyList::frmModifyList(Toolkit& toolkit) : Form(toolkit, "frmModifyList"), Routines("frmModifyList") {
  BorderStyle(BorderStyle::Sizable);
  ButUp.Picture(ButtonPicture::ArrowUp);
  ButDown.Picture(ButtonPicture::ArrowDown);
  lblInput.AccessKey('N');
  ButAdd.AccessKey('A');
  lblParametr.AccessKey('E');
  ButDelete.AccessKey('D');
  ButUp.AccessKey('U');
  ButDown.AccessKey('w');
  ButSave.AccessKey('S');

  ButAdd.Click = [this] { ButAdd_Click(); };
  ButDelete.Click = [this] { ButDelete_Click(); };
  ButUp.Click = [this] { ButUp_Click(); };
  ButDown.Click = [this] { ButDown_Click(); };
  ButSave.Click = [this] { ButSave_Click(); };
  ButCancel.Click = [this] { ButCancel_Click(); };
  txtInput.KeyDown = [this](const KeyPress& press) { return InputKey(press); };
  lstParametr.KeyDown = [this](const KeyPress& press) { return ListKey(press); };
  DefaultButton(ButSave);
  CancelButton(ButCancel);

  Layout(Column(
      {lblInput, Row({LayoutNode(txtInput).Chars(28).Stretch(), ButAdd}), lblParametr,
       Row({LayoutNode(lstParametr).Chars(28).Lines(10).Stretch(), Column({ButDelete, ButUp, ButDown})}).Stretch(),
       Row({Space(0).Stretch(), SameWidth({ButSave, ButCancel})})}));
}

std::string frmModifyList::InpList() const {
  return routine<std::string>("InpList",
                              [&](Steps& step, std::string& listText) { step([&] { listText = m_inpList; }); });
}

void frmModifyList::InpList(std::string_view listText) {
  routine("InpList", [&](Steps& step) {
    step([&] { m_inpList = listText; });
    m_filled = false;
  });
}

void frmModifyList::Form_Load() {
  routine("Form_Load", [&](Steps& step) {
    step([&] { m_formRestore = std::make_unique<CFormRestore>(); });
    step([&] { m_formRestore->Init(m_appSettings, true); });
    step([&] { m_formRestore->GetPosition(*this); });
  });
}

void frmModifyList::Form_Activate() {
  routine("Form_Activate", [&](Steps& step) {
    if (m_filled) return;
    m_filled = true;
    step([&] { lstParametr.Clear(); });
    const auto entries = step([&] { return Split(m_inpList, "|"); });
    for (const auto& entry : entries) step([&] { lstParametr.AddItem(entry); });
  });
}

void frmModifyList::Form_Unload() {
  routine("Form_Unload", [&](Steps& step) {
    step([&] {
      if (m_formRestore) m_formRestore->SavePosition(*this);
    });
  });
}

void frmModifyList::ButAdd_Click() {
  routine("ButAdd_Click", [&](Steps& step) {
    const auto entries = step([&] { return Split(txtInput.Text(), "|"); });
    bool added = false;
    for (const auto& entry : entries)
      if (!entry.empty()) added |= step([&] { return AddEntry(entry); });
    if (!added) return;
    step([&] { txtInput.Text(""); });
    step([&] { txtInput.SetFocus(); });
    step([&] { lstParametr.ListIndex(lstParametr.ListCount() - 1); });
  });
}

void frmModifyList::ButDelete_Click() {
  routine("ButDelete_Click", [&](Steps& step) {
    step([&] {
      if (lstParametr.ListIndex() >= 0) lstParametr.RemoveItem(lstParametr.ListIndex());
    });
    step([&] {
      if (lstParametr.ListIndex() < 0) lstParametr.ListIndex(lstParametr.ListCount() - 1);
    });
  });
}

void frmModifyList::ButUp_Click() {
  routine("ButUp_Click", [&](Steps& step) {
    const int index = lstParametr.ListIndex();
    if (index <= 0) return;
    step([&] { lstParametr.AddItem(std::string(lstParametr.List(index)), index - 1); });
    step([&] { lstParametr.RemoveItem(index + 1); });
    step([&] { lstParametr.ListIndex(index - 1); });
  });
}

void frmModifyList::ButDown_Click() {
  routine("ButDown_Click", [&](Steps& step) {
    const int index = lstParametr.ListIndex();
    if (index < 0 || index >= lstParametr.ListCount() - 1) return;
    step([&] { lstParametr.AddItem(std::string(lstParametr.List(index)), index + 2); });
    step([&] { lstParametr.RemoveItem(index); });
    step([&] { lstParametr.ListIndex(index + 1); });
  });
}

void frmModifyList::ButSave_Click() {
  routine("ButSave_Click", [&](Steps& step) {
    step([&] { m_inpList = Join(lstParametr.Items(), "|"); });
    step([&] { Tag("1"); });
    step([&] { Hide(); });
  });
}

void frmModifyList::ButCancel_Click() {
  routine("ButCancel_Click", [&](Steps& step) {
    step([&] { Tag("2"); });
    step([&] { Hide(); });
  });
}

bool frmModifyList::InputKey(const KeyPress& press) {
  if (press.key != Key::Enter || txtInput.Text().empty()) return false;
  ButAdd_Click();
  return true;
}

bool frmModifyList::ListKey(const KeyPress& press) {
  const bool moves = press.control || press.alt;
  if (press.key == Key::Delete)
    ButDelete_Click();
  else if (press.key == Key::Up && moves)
    ButUp_Click();
  else if (press.key == Key::Down && moves)
    ButDown_Click();
  else
    return false;
  return true;
}

// True when the entry was new. The text of one that is there already stays in the box, selected to be typed over.
bool frmModifyList::AddEntry(std::string_view entry) {
  const auto& entries = lstParametr.Items();
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const auto& other) { return EqualNoCase(other, entry); });
  if (found == entries.end()) {
    lstParametr.AddItem(entry);
    return true;
  }
  lstParametr.ListIndex(static_cast<int>(found - entries.begin()));
  txtInput.SelectAll();
  return false;
}

}  // namespace pellora
