#include "tests/libreoffice/forms/Hands.h"

#include <array>
#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <condition_variable>
#include <cppuhelper/implbase1.hxx>
#include <cstdio>
#include <memory>
#include <mutex>
#include <rtl/ref.hxx>

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
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  for (bool met = false;;) {
    OnMainThread([&] { met = condition(); });
    if (met) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
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

awt::Rectangle Hands::PlaceOf(const Control& control) const {
  awt::Rectangle place;
  OnMainThread([&] {
    const auto form = FormPeerOf(m_form)->Corner();
    const auto& bounds = control.Bounds();
    place = awt::Rectangle(form.x + bounds.left, form.y + bounds.top, bounds.Width(), bounds.Height());
  });
  return place;
}

void Hands::MoveTo(const Control& control, Point place) const {
  // A window manager may still be moving the window.
  auto at = PlaceOf(control);
  for (awt::Rectangle before; before.X != at.X || before.Y != at.Y; at = PlaceOf(control)) {
    before = at;
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
  }
  const auto to = std::to_string(at.X + place.x) + " " + std::to_string(at.Y + place.y);
  // A pointer that is there already has to move for the toolkit to notice.
  RunProgram("xdotool mousemove_relative 3 3 mousemove " + to);
}

void Hands::Click(const Control& control, Point place) const {
  MoveTo(control, place);
  RunProgram("xdotool click 1");
}

void Hands::Click(const Control& control) const {
  const auto at = PlaceOf(control);
  Click(control, {static_cast<int>(at.Width / 2), static_cast<int>(at.Height / 2)});
}

void Hands::CloseWindow() const { Press("alt+F4"); }

std::string Hands::WindowTitled(const std::string& title) const {
  for (int attempt = 0; attempt < 100; ++attempt) {
    const auto found = RunProgram("xdotool search --onlyvisible --name '^" + title + "$' | tail -1");
    if (!found.empty()) return found;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return {};
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
    bool shown = false;
    for (int i = 0; i < 50; ++i) {
      OnMainThread([&] { shown = form.Shown(); });
      if (!shown) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_FALSE(shown) << "still shown after its part was played";
    if (shown) OnMainThread([&] { form.Hide(); });
  });
  form.Show();
}

}  // namespace pellora::libreoffice
