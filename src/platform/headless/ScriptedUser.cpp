#include <exception>
#include <utility>

#include "forms/TextBox.h"
#include "platform/headless/Headless.h"

namespace pellora::headless {
namespace {

constexpr std::string_view kErrorDialog = "frmErrorMessage";
constexpr std::string_view kErrorText = "txtErrorMessage";
constexpr int kMostAnsweredErrors = 1000;

std::function<void(UserAtForm&)> PressingButton(std::string_view button) {
  return [name = std::string(button)](UserAtForm& user) { user.Click(name); };
}

std::string ErrorTextOf(const Form& form) {
  const auto* box = dynamic_cast<const TextBox*>(form.FindControl(kErrorText));
  return box ? box->Text() : std::string();
}

std::string DescribeForm(std::string_view name) { return "form " + std::string(name); }

std::string DescribeMessage(std::string_view text) { return "message \"" + std::string(text) + "\""; }

}  // namespace

void ScriptedUser::ExpectForm(std::string_view name, std::function<void(UserAtForm&)> part) {
  m_expected.push_back({std::string(name), false, std::move(part), {}});
}

void ScriptedUser::ExpectMessage(std::string_view text, MessageAnswer answer) {
  m_expected.push_back({std::string(text), true, {}, answer});
}

void ScriptedUser::ExpectErrorDialog(std::string_view button) { ExpectForm(kErrorDialog, PressingButton(button)); }

void ScriptedUser::AnswerErrorDialogs(std::string_view button) {
  m_errorAnswer = button;
  m_answeredErrors = 0;
}

std::string ScriptedUser::Verify() const {
  if (!m_faults.empty()) return m_faults.front();
  return m_next < m_expected.size() ? NextExpected() + " was expected and did not appear" : std::string();
}

void ScriptedUser::Play(Form& form) {
  if (form.Name() == kErrorDialog) m_errorTexts.push_back(ErrorTextOf(form));
  if (const auto part = NextPart(form)) {
    PlayPart(form, part);
  } else {
    auto text = form.Name() == kErrorDialog ? ": " + ErrorTextOf(form) : std::string();
    Fault(DescribeForm(form.Name()) + " appeared where " + NextExpected() + " was expected" + text);
  }
  // What a user does who does not know the form. One that refuses is hidden when its showing returns from here.
  if (form.Shown()) form.PeerClose();
}

std::function<void(UserAtForm&)> ScriptedUser::NextPart(const Form& form) {
  if (m_next < m_expected.size()) {
    const auto& next = m_expected[m_next];
    if (!next.isMessage && next.what == form.Name()) {
      ++m_next;
      m_answeredErrors = 0;
      return next.part;
    }
  }
  const auto answers = form.Name() == kErrorDialog && !m_errorAnswer.empty();
  return answers && ++m_answeredErrors <= kMostAnsweredErrors ? PressingButton(m_errorAnswer) : nullptr;
}

void ScriptedUser::PlayPart(Form& form, const std::function<void(UserAtForm&)>& part) {
  UserAtForm user(form);
  try {
    part(user);
    if (form.Shown()) Fault(DescribeForm(form.Name()) + " was still shown after its part");
  } catch (const std::exception& failure) {
    // Nothing may leave a showing: the dialogs below would take it for a failure of their own.
    Fault(DescribeForm(form.Name()) + ": " + failure.what());
  }
}

MessageAnswer ScriptedUser::AnswerMessage(const Message& message) {
  m_messages.push_back(message);
  if (m_next < m_expected.size() && m_expected[m_next].isMessage && m_expected[m_next].what == message.text)
    return m_expected[m_next++].answer;
  Fault(DescribeMessage(message.text) + " appeared where " + NextExpected() + " was expected");
  return message.buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Abort;
}

std::string ScriptedUser::NextExpected() const {
  if (m_next >= m_expected.size()) return "nothing";
  const auto& next = m_expected[m_next];
  return next.isMessage ? DescribeMessage(next.what) : DescribeForm(next.what);
}

}  // namespace pellora::headless
