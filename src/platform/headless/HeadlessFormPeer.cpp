#include "platform/headless/HeadlessFormPeer.h"

#include <algorithm>

#include "forms/Placing.h"

namespace pellora::headless {
namespace {

/// The show command of a placement for a window that fills the screen.
constexpr int kMaximised = 3;

class HeadlessControlPeer : public ControlPeer {
 public:
  HeadlessControlPeer(HeadlessFormPeer& form, Control& control) : m_form(form), m_control(control) {}

  void Changed(Aspect aspect) override {
    const auto captioned = aspect == Aspect::Text && !m_control.Caption().empty();
    if (aspect == Aspect::Visible || captioned) m_form.LayOutAgain();
  }
  void Focus() override {}

 private:
  HeadlessFormPeer& m_form;
  Control& m_control;
};

}  // namespace

HeadlessFormPeer::HeadlessFormPeer(HeadlessToolkit& toolkit, Form& form)
    : m_toolkit(toolkit), m_form(form), m_measurer(toolkit.dpi) {
  ++m_toolkit.formPeers;
  Resize({});
  m_placement.normal = Centred(OuterSize(), m_toolkit.desktop);
  for (auto* control : m_form.Descendants())
    control->AttachPeer(std::make_unique<HeadlessControlPeer>(*this, *control));
}

HeadlessFormPeer::~HeadlessFormPeer() { --m_toolkit.formPeers; }

void HeadlessFormPeer::ShowModal() {
  struct Count {
    explicit Count(int& shown) : shown(shown) { ++shown; }
    ~Count() { --shown; }
    int& shown;
  } count(m_toolkit.shown);
  m_ended = false;
  m_form.PeerActivate();
  if (!m_ended) m_toolkit.user.Play(m_form);
}

std::optional<Placement> HeadlessFormPeer::GetPlacement() {
  return m_toolkit.refusesPlacement ? std::nullopt : std::optional(m_placement);
}

bool HeadlessFormPeer::SetPlacement(const Placement& placement) {
  if (m_toolkit.refusesPlacement) return false;
  m_placement = placement;
  if (m_form.BorderStyle() == BorderStyle::Sizable) Resize(ClientFor(placement));
  return true;
}

Size HeadlessFormPeer::OuterSize() {
  const auto frame = WindowFrame();
  return {m_client.width + frame.width, m_client.height + frame.height};
}

Size HeadlessFormPeer::LeastClient() const { return pellora::LeastClient(m_form, m_measurer); }

void HeadlessFormPeer::Resize(Size client) {
  const auto least = LeastClient();
  m_client = {std::max(client.width, least.width), std::max(client.height, least.height)};
  if (m_form.Layout()) PlaceLayout(*m_form.Layout(), m_client, m_measurer);
}

Size HeadlessFormPeer::ClientFor(const Placement& placement) const {
  const auto& outer = placement.showCommand == kMaximised ? m_toolkit.desktop : placement.normal;
  const auto frame = WindowFrame();
  return {outer.Width() - frame.width, outer.Height() - frame.height};
}

Size HeadlessFormPeer::WindowFrame() const { return {m_measurer.Scale(16), m_measurer.Scale(39)}; }

}  // namespace pellora::headless
