#include <algorithm>
#include <com/sun/star/awt/DeviceInfo.hpp>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/XDevice.hpp>

#include "forms/TextBox.h"
#include "platform/libreoffice/forms/Form.h"
#include "platform/libreoffice/forms/Modal.h"

namespace pellora::libreoffice {
namespace {

/// What a form with lists or long texts gets when it is shown for the first time, in hundredths of its least size.
constexpr int kComfort = 125;
/// How much of a caption must be on the desktop for the user to get hold of it.
constexpr int kGripDip = 32;
/// Show commands of a placement.
constexpr int kNormal = 1;
constexpr int kMaximised = 3;

/// Moves a rectangle inside another; one that is too large keeps its left and top edges inside.
Rect MovedInside(const Rect& rect, const Rect& area) {
  const auto left = std::max(area.left, std::min(rect.left, area.right - rect.Width()));
  const auto top = std::max(area.top, std::min(rect.top, area.bottom - rect.Height()));
  return {left, top, left + rect.Width(), top + rect.Height()};
}

Rect Centred(Size size, const Rect& over) {
  const auto left = over.left + (over.Width() - size.width) / 2;
  const auto top = over.top + (over.Height() - size.height) / 2;
  return {left, top, left + size.width, top + size.height};
}

bool Gains(const pellora::Control* control) {
  switch (control->Kind()) {
    case ControlKind::Grid:
    case ControlKind::ListBox: return true;
    case ControlKind::TextBox: return static_cast<const pellora::TextBox*>(control)->MultiLine();
    default: return false;
  }
}

/// What the window manager has drawn around a window, as far as it is known yet.
awt::DeviceInfo Around(const Window& window) {
  awt::DeviceInfo info;
  const auto device = window.As<awt::XDevice>();
  if (device.is()) WhileThere([&] { info = device->getInfo(); });
  return info;
}

}  // namespace

Size UnoFormPeer::LeastClient() const {
  const auto least = m_form.Layout() ? MeasureLayout(*m_form.Layout(), *m_fonts) : Size{};
  const auto margins = 2 * m_fonts->Scale(kFormMargin);
  return {least.width + margins, least.height + margins};
}

Size UnoFormPeer::Client() const {
  auto client = m_client;
  if (m_window && m_running)
    WhileThere([&] {
      const auto size = m_window.get()->getOutputSize();
      client = {static_cast<int>(size.Width), static_cast<int>(size.Height)};
    });
  return client;
}

Size UnoFormPeer::FrameSize() const {
  const auto around = Around(m_window);
  return {static_cast<int>(around.LeftInset + around.RightInset),
          static_cast<int>(around.TopInset + around.BottomInset)};
}

Size UnoFormPeer::OuterOf(Size client) const {
  const auto frame = FrameSize();
  return {client.width + frame.width, client.height + frame.height};
}

Point UnoFormPeer::Corner() const {
  // The toolkit counts the place of a dialog from that of the window it belongs to.
  auto corner = CornerOf(m_over);
  if (m_window)
    WhileThere([&] {
      auto place = m_window.get()->getPosSize();
      // Until the window manager has placed the window, the toolkit knows nothing but a corner: of the window it
      // belongs to, or of the screen.
      const bool unknown = (place.X == 0 && place.Y == 0) || (corner.x + place.X == 0 && corner.y + place.Y == 0);
      if (unknown) place = awt::Rectangle(m_asked.x, m_asked.y, place.Width, place.Height);
      corner = {static_cast<int>(corner.x + place.X), static_cast<int>(corner.y + place.Y)};
    });
  return corner;
}

Rect UnoFormPeer::OuterPlace() const {
  const auto inside = Corner();
  const auto around = Around(m_window);
  const auto size = OuterOf(Client());
  const auto left = static_cast<int>(inside.x - around.LeftInset);
  const auto top = static_cast<int>(inside.y - around.TopInset);
  return {left, top, left + size.width, top + size.height};
}

void UnoFormPeer::MoveTo(Point outer) {
  m_outer = outer;
  if (m_running) AskForPlace(awt::PosSize::POS);
}

void UnoFormPeer::Resize(Size client) {
  const auto changes = client != Client();
  m_client = client;
  if (changes && m_running) WhileThere([&] { m_window.get()->setOutputSize({client.width, client.height}); });
  LayOut();
}

// Once, before the form comes up: a slow window manager would report every place it has been asked for, the earlier
// ones when the last is already taken for granted, and a form closed meanwhile would be remembered to have been there.
void UnoFormPeer::AskForPlace(sal_Int16 parts) {
  const auto around = Around(m_window);
  const auto origin = CornerOf(m_over);
  m_asked = {static_cast<int>(m_outer.x + around.LeftInset - origin.x),
             static_cast<int>(m_outer.y + around.TopInset - origin.y)};
  WhileThere([&] { m_window.get()->setPosSize(m_asked.x, m_asked.y, m_client.width, m_client.height, parts); });
}

void UnoFormPeer::LayOut() {
  if (!m_form.Layout() || !m_window) return;
  m_laidOut = Client();
  PlaceLayout(*m_form.Layout(), m_laidOut, *m_fonts);
  for (auto* peer : std::vector(m_peers)) peer->Placed();
}

void UnoFormPeer::OnMoved() {
  if (!m_running || !m_window) return;
  const auto client = Client();
  if (client != m_laidOut) LayOut();
  // The toolkit knows no least size; what the user makes too small grows back.
  const auto least = LeastClient();
  if (client.width < least.width || client.height < least.height) RequestLayout();
  const auto outer = OuterPlace();
  if (!FillsDesktop(outer)) m_placement.normal = outer;
}

bool UnoFormPeer::GainsByRoom() const {
  const auto controls = m_form.Descendants();
  return m_form.BorderStyle() == BorderStyle::Sizable && std::any_of(controls.begin(), controls.end(), &Gains);
}

Rect UnoFormPeer::PlaceOver() const {
  Rect over = WorkArea();
  const uno::Reference<awt::XWindow2> window(m_over, uno::UNO_QUERY);
  WhileThere([&] {
    if (!window.is() || !window->isVisible()) return;
    const auto size = window->getOutputSize();
    const auto corner = CornerOf(m_over);
    if (size.Width > 0 && size.Height > 0)
      over = {corner.x, corner.y, static_cast<int>(corner.x + size.Width), static_cast<int>(corner.y + size.Height)};
  });
  return over;
}

void UnoFormPeer::PlaceByDefault() {
  auto client = LeastClient();
  const auto work = WorkArea();
  if (GainsByRoom()) {
    const auto frame = FrameSize();
    const Size room{work.Width() - frame.width, work.Height() - frame.height};
    client.width = std::max(client.width, std::min(client.width * kComfort / 100, room.width));
    client.height = std::max(client.height, std::min(client.height * kComfort / 100, room.height));
  }
  m_placement.normal = MovedInside(Centred(OuterOf(client), PlaceOver()), work);
  MoveTo({m_placement.normal.left, m_placement.normal.top});
  Resize(client);
}

void UnoFormPeer::FitToContent() {
  // Texts may have grown since the form was placed.
  if (!m_placed && !m_running) return PlaceByDefault();
  const auto least = LeastClient();
  const auto now = Client();
  const auto grows = m_form.BorderStyle() == BorderStyle::Sizable;
  Resize({grows ? std::max(least.width, now.width) : least.width,
          grows ? std::max(least.height, now.height) : least.height});
}

Rect UnoFormPeer::Reachable(const Rect& outer) const {
  const auto work = WorkArea();
  const auto grip = m_fonts->Scale(kGripDip);
  const auto shared = std::min(outer.right, work.right) - std::max(outer.left, work.left);
  const auto within = outer.top >= work.top && outer.top + grip <= work.bottom;
  return shared >= grip && within ? outer : MovedInside(outer, work);
}

std::optional<Placement> UnoFormPeer::GetPlacement() {
  if (!m_window) return std::nullopt;
  // It may be asked for before the form is hidden.
  if (m_running) RememberState();
  return m_placement;
}

bool UnoFormPeer::SetPlacement(const Placement& placement) {
  if (!m_window) return false;
  m_placed = true;
  m_placement = placement;
  const auto least = OuterOf(LeastClient());
  auto& normal = m_placement.normal;
  normal.right = std::max(normal.right, normal.left + least.width);
  normal.bottom = std::max(normal.bottom, normal.top + least.height);
  normal = Reachable(normal);
  const auto outer = WantsMaximised() ? WorkArea() : normal;
  const auto frame = FrameSize();
  MoveTo({outer.left, outer.top});
  Resize({outer.Width() - frame.width, outer.Height() - frame.height});
  return true;
}

bool UnoFormPeer::WantsMaximised() const {
  const auto maximised = m_placement.showCommand == kMaximised || m_form.WindowState() == WindowState::Maximized;
  return m_form.BorderStyle() == BorderStyle::Sizable && maximised;
}

bool UnoFormPeer::FillsDesktop(const Rect& outer) const {
  const auto work = WorkArea();
  // What the window manager draws around a window is known only roughly before it is shown.
  const auto roughly = m_fonts->Scale(kGripDip);
  return m_form.BorderStyle() == BorderStyle::Sizable && outer.Width() + roughly >= work.Width() &&
         outer.Height() + roughly >= work.Height();
}

void UnoFormPeer::RememberState() {
  if (!m_window || !IsShown()) return;
  const auto maximised = FillsDesktop(OuterPlace());
  if (!maximised) m_placement.normal = OuterPlace();
  m_placement.showCommand = maximised ? kMaximised : kNormal;
  m_form.WindowState(maximised ? WindowState::Maximized : WindowState::Normal);
}

Rect UnoFormPeer::WorkArea() const {
  Rect desktop{0, 0, 1024, 768};
  WhileThere([&] {
    const auto area = m_toolkit->getWorkArea();
    desktop = {static_cast<int>(area.X), static_cast<int>(area.Y), static_cast<int>(area.X + area.Width),
               static_cast<int>(area.Y + area.Height)};
  });
  return desktop;
}

Rect UnoFormPeer::Desktop() { return WorkArea(); }

Size UnoFormPeer::OuterSize() { return m_window ? OuterOf(Client()) : Size{}; }

}  // namespace pellora::libreoffice
