#include "tests/libreoffice/forms/Hands.h"

#include <array>
#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <condition_variable>
#include <cppuhelper/implbase1.hxx>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <rtl/ref.hxx>
#include <utility>

#include "platform/libreoffice/forms/Control.h"
#include "platform/libreoffice/forms/Form.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::libreoffice {
namespace {

class Errand : public cppu::WeakImplHelper1<awt::XCallback> {
 public:
  explicit Errand(const std::function<void()>& action) : m_action(action) {}

  void SAL_CALL notify(const uno::Any&) override {
    try {
      m_action();
    } catch (...) {
      // What was asked for could not be answered now.
    }
    const std::lock_guard lock(m_mutex);
    m_done = true;
    m_changed.notify_all();
  }

  void Wait() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_done; });
  }

 private:
  std::function<void()> m_action;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_done = false;
};

/// The number behind a word in a text, 0 when it is not there.
int NumberBehind(const std::string& text, const std::string& word) {
  const auto at = text.find(word);
  return at == std::string::npos ? 0 : std::atoi(text.c_str() + at + word.size());
}

/// No wait ends by this on a machine that does anything at all.
constexpr auto kPatience = std::chrono::seconds(30);

bool UntilTrue(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

Point CornerOnDisplay(const std::string& window) {
  const auto known = RunProgram("xwininfo -id " + window);
  return {NumberBehind(known, "Absolute upper-left X:"), NumberBehind(known, "Absolute upper-left Y:")};
}

UnoFormPeer* FormPeerOf(Form& form) { return static_cast<UnoFormPeer*>(form.WindowPeer()); }

}  // namespace

void OnMainThread(const std::function<void()>& action) {
  const rtl::Reference<Errand> errand(new Errand(action));
  awt::AsyncCallback::create(test::Office())->addCallback(errand.get(), uno::Any());
  errand->Wait();
}

void WithEventsPast() {
  const uno::Reference<awt::XToolkitExperimental> events(awt::Toolkit::create(test::Office()), uno::UNO_QUERY_THROW);
  events->processEventsToIdle();
}

std::string RunProgram(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>/dev/null").c_str(), "r"), &::pclose);
  std::string output;
  std::array<char, 256> part{};
  while (pipe && std::fgets(part.data(), static_cast<int>(part.size()), pipe.get())) output += part.data();
  while (output.ends_with('\n')) output.pop_back();
  return output;
}

bool Hands::Until(const std::function<bool()>& condition) const {
  return UntilTrue([&] {
    bool met = false;
    OnMainThread([&] { met = condition(); });
    return met;
  });
}

bool Hands::IsUp(Form& form) const {
  return Until([&] {
    auto* active = form.ActiveControl();
    if (!FormPeerOf(form) || !FormPeerOf(form)->IsUp()) return false;
    return !active || static_cast<UnoControlPeer*>(active->Peer())->HasKeyboard();
  });
}

bool Hands::HasFocus(const Control& control) const {
  return Until([&] { return static_cast<UnoControlPeer*>(control.Peer())->HasKeyboard(); });
}

void Hands::Press(const std::string& keys) const { RunProgram("xdotool key " + keys); }

void Hands::Type(const std::string& text) const { RunProgram("xdotool type --delay 20 '" + text + "'"); }

Point Hands::SettledCorner() const {
  const auto window = WindowTitled(m_form.Caption());
  auto at = CornerOnDisplay(window);
  for (int still = 0; still < 3; ++still) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto before = std::exchange(at, CornerOnDisplay(window));
    if (before.x != at.x || before.y != at.y) still = 0;
  }
  return at;
}

awt::Rectangle Hands::PlaceOf(const Control& control) const {
  const auto form = SettledCorner();
  awt::Rectangle place;
  OnMainThread([&] {
    const auto& bounds = control.Bounds();
    place = awt::Rectangle(form.x + bounds.left, form.y + bounds.top, bounds.Width(), bounds.Height());
  });
  return place;
}

void Hands::MoveTo(const Control& control, Point place) const {
  const auto at = PlaceOf(control);
  const auto to = std::to_string(at.X + place.x) + " " + std::to_string(at.Y + place.y);
  // A pointer that is there already has to move for the toolkit to notice.
  RunProgram("xdotool mousemove " + to + " mousemove_relative 3 3 mousemove --sync " + to);
}

void Hands::Click(const Control& control, Point place) const {
  MoveTo(control, place);
  RunProgram("xdotool click 1");
}

void Hands::Click(const Control& control) const {
  const auto at = PlaceOf(control);
  Click(control, {static_cast<int>(at.Width / 2), static_cast<int>(at.Height / 2)});
}

bool Hands::WindowHasKeyboard(const std::string& title) const {
  return UntilTrue([&] { return RunProgram("xdotool getwindowfocus getwindowname") == title; });
}

void Hands::CloseWindow(const std::string& title) const {
  // The manager's key is for the window that it takes for the active one, and it hears late of the keyboard's moves.
  UntilTrue([&] { return RunProgram("xdotool getactivewindow getwindowname") == title; });
  Press("alt+F4");
}

std::string Hands::WindowTitled(const std::string& title) const {
  std::string found;
  UntilTrue([&] {
    found = RunProgram("xdotool search --onlyvisible --name '^" + title + "$' | tail -1");
    return !found.empty();
  });
  return found;
}

Player::Player(Form& form, std::function<void(Hands&)> part)
    : m_thread([this, &form, part] {
        Hands hands(form);
        part(hands);
        m_done = true;
      }) {}

Player::~Player() {
  while (!m_done) {
    WithEventsPast();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  m_thread.join();
}

OfficeFormTest::OfficeFormTest() : toolkit(test::Office()) {}

void OfficeFormTest::Show(Form& form, std::function<void(Hands&)> part) {
  const Player player(form, [&](Hands& hands) {
    part(hands);
    bool shown = !hands.Until([&] { return !form.Shown(); });
    EXPECT_FALSE(shown) << "still shown after its part was played";
    for (int i = 0; shown && i < 50; ++i) {
      // A message box that is over the form goes by a key only.
      OnMainThread([&] { form.Hide(); });
      hands.Press("Escape");
      OnMainThread([&] { shown = form.Shown(); });
    }
  });
  form.Show();
}

}  // namespace pellora::libreoffice
