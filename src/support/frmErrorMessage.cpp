#include "support/frmErrorMessage.h"

#include <array>

#include "core/Text.h"
#include "support/CShell.h"
#include "support/Quietly.h"
#include "support/mGlobal.h"

namespace pellora {
namespace {

struct Escape {
  std::string_view find;
  std::string_view replacement;
};

// Applied to the whole text one after the other, in this order. A "%" that is already there and every other character
// stay as they are.
constexpr std::array kBodyEscapes = {
    Escape{"\r\n", "%0A"}, Escape{"\t", "%09"}, Escape{":", "%3A"}, Escape{"/", "%2F"},
    Escape{"?", "%3F"},    Escape{"=", "%3D"},  Escape{"&", "%26"},
};

constexpr std::size_t kRuleLength = 20;

std::string EscapeBody(std::string text) {
  for (const auto& escape : kBodyEscapes) text = Replace(text, escape.find, escape.replacement);
  return text;
}

std::string VersionLine(const LibraryInfo& library) {
  return "Version: " + std::to_string(library.major) + "." + std::to_string(library.minor) + "." +
         std::to_string(library.revision);
}

}  // namespace

frmErrorMessage::frmErrorMessage(Toolkit& toolkit) : Form(toolkit, "frmErrorMessage") {
  Caption("Error");
  BorderStyle(BorderStyle::Sizable);
  elaTitleCaption.Style(TextStyle::Heading);
  txtErrorMessage.MultiLine(true);
  txtErrorMessage.ReadOnly(true);
  txtErrorMessage.AccessibleName("Error text");

  btnAbort.AccessKey('A');
  btnRetry.AccessKey('R');
  btnIgnore.AccessKey('I');
  btnSend.AccessKey('S');
  btnAbort.Click = [this] { btnAbort_Click(); };
  btnRetry.Click = [this] { btnRetry_Click(); };
  btnIgnore.Click = [this] { btnIgnore_Click(); };
  btnSend.Click = [this] { btnSend_Click(); };

  // The dialog may come up under typing hands. Abort is the one answer that neither repeats the failed work nor goes
  // on without it, so that is what a stray Enter gives; it is also the first button, as in the system's message box.
  DefaultButton(btnAbort);
  CancelButton(btnAbort);

  Layout(Column({
      Group(elaTitle, Row({elaTitleCaption})),
      Group(elaInfo, Row({LayoutNode(txtErrorMessage).Chars(76).Lines(14).Stretch()})).Stretch(),
      Group(elaButtons, Row({SameWidth({btnAbort, btnRetry, btnIgnore}), Space(0).Stretch(), btnSend})),
  }));
}

void frmErrorMessage::SupportMail(std::string_view address) {
  Quietly([&] { m_supportMail = address; });
  Quietly([&] { btnSend.Enabled(!m_supportMail.empty()); });
}

void frmErrorMessage::ErrorMessage(std::string_view text) {
  Quietly([&] { txtErrorMessage.Text(std::string(text) + "\r\n" + VersionLine(mGlobal::CurrentPlatform().library)); });
}

void frmErrorMessage::OnLoad() {
  Quietly([&] { elaTitleCaption.Caption("An error occurred in " + mGlobal::CurrentPlatform().library.title); });
  Quietly([&] { btnSend.Enabled(!m_supportMail.empty()); });
  Quietly([&] { GetToolkit().Beep(); });
  // The host's window may not be the active one.
  Quietly([&] {
    if (auto* const peer = WindowPeer()) peer->BringToFront();
  });
  Quietly([&] { Tag("ABORT"); });
  // The keys go to the answers, not into the text.
  Quietly([&] { btnAbort.SetFocus(); });
}

// The dialog stays open; that no mail program starts is passed over.
void frmErrorMessage::btnSend_Click() {
  Quietly([&] { CShell().OpenUrl(MailUrl()); });
}

void frmErrorMessage::Answer(std::string_view result) {
  Quietly([&] { Tag(result); });
  Quietly([&] { Hide(); });
}

std::string frmErrorMessage::MailUrl() const {
  const std::string rule(kRuleLength, '-');
  const auto body = "%0A%0A" + rule + "%0A" + EscapeBody(txtErrorMessage.Text()) + "%0A" + rule;
  return "mailto:" + m_supportMail + "?subject=" + Replace(elaTitleCaption.Caption(), " ", "%20") + "&body=" + body;
}

}  // namespace pellora
