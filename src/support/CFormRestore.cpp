#include "support/CFormRestore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

#include "core/Convert.h"
#include "forms/Form.h"
#include "support/CAppSettings.h"
#include "support/ComponentErrors.h"

namespace pellora {
namespace {

constexpr std::uint32_t kNotInitialized = 0x4499;
constexpr std::uint32_t kInvalidAppSettings = 0x449A;
constexpr std::uint32_t kInvalidKeyName = 0x449B;
constexpr std::uint32_t kComponentFailure = 0x449C;
constexpr ComponentErrors kErrors("Pellora.CFormRestore", "CFormRestore component failure", kNotInitialized,
                                  kComponentFailure);

constexpr int kShowNormal = 1;
constexpr int kShowMinimized = 2;
constexpr int kShowMaximized = 3;

/// What a saved show command stands for. Without a state the form keeps its own.
struct ShowCommand {
  int saved;
  std::optional<WindowState> state;
  int applied;
};

// The platform's commands: 1 normal, 5 show, 9 restore; 2, 6 and 7 minimise; 3 maximise; 8 and 10 show in whatever
// state, which a form that is not yet showing must not do.
constexpr std::array kShowCommands = {
    ShowCommand{1, WindowState::Normal, 1},    ShowCommand{5, WindowState::Normal, 5},
    ShowCommand{9, WindowState::Normal, 9},    ShowCommand{2, WindowState::Minimized, 2},
    ShowCommand{6, WindowState::Minimized, 6}, ShowCommand{7, WindowState::Minimized, 7},
    ShowCommand{3, WindowState::Maximized, 3}, ShowCommand{8, std::nullopt, 0},
    ShowCommand{10, std::nullopt, 0},
};

ShowCommand Meaning(int saved) {
  const auto found = std::find_if(kShowCommands.begin(), kShowCommands.end(),
                                  [saved](const ShowCommand& command) { return command.saved == saved; });
  return found != kShowCommands.end() ? *found : ShowCommand{saved, WindowState::Normal, kShowNormal};
}

int CommandForState(WindowState state) {
  switch (state) {
    case WindowState::Minimized: return kShowMinimized;
    case WindowState::Maximized: return kShowMaximized;
    default: return kShowNormal;
  }
}

/// Farther out than any desktop reaches, near enough to add to.
constexpr double kFarthest = 1'000'000;

/// One section of a store as whole numbers, kept as decimal text.
class PlacementSection {
 public:
  PlacementSection(CAppSettings& store, std::string name) : m_store(store), m_name(std::move(name)) {}

  /// What somebody else wrote there may be any text: the number at its beginning counts, 0 where there is none.
  int Read(std::string_view name, const char* otherwise = "0") const {
    const double number = std::nearbyint(Val(ToText(m_store.GetSetting(m_name, name, otherwise))));
    return static_cast<int>(std::clamp(number, -kFarthest, kFarthest));
  }

  void Write(std::string_view name, int value) const {
    Variant text = std::to_string(value);
    m_store.SaveSetting(m_name, name, text);
  }

 private:
  CAppSettings& m_store;
  std::string m_name;
};

CAppSettings& RequireStore(const std::shared_ptr<CAppSettings>& store) {
  if (!store) kErrors.Raise(kNotInitialized, "Object not properly initialized");
  return *store;
}

Size SizeNow(const Form& form) {
  if (auto* const peer = form.WindowPeer()) return peer->OuterSize();
  const auto placement = form.GetPlacement();
  return placement ? Size{placement->normal.Width(), placement->normal.Height()} : Size{};
}

/// Reads the rectangle's corner; its size only where the user may have changed it, so that a form of fixed size keeps
/// the one it was designed with. A stored size of nothing is damage, not a wish.
Rect ReadNormal(const PlacementSection& section, const Form& form) {
  Rect normal{.left = section.Read("NormalPosLeft"), .top = section.Read("NormalPosTop")};
  if (form.BorderStyle() == BorderStyle::Sizable) {
    normal.right = section.Read("NormalPosRight");
    normal.bottom = section.Read("NormalPosBottom");
    if (normal.Width() > 0 && normal.Height() > 0) return normal;
  }
  const auto size = SizeNow(form);
  return {normal.left, normal.top, normal.left + size.width, normal.top + size.height};
}

/// The show command to apply for a saved one; gives a form that is not yet showing the window state it stands for.
int RestoreCommand(Form& form, int saved, bool neverMinimized) {
  const auto command = Meaning(saved);
  const bool raised = neverMinimized && command.state == WindowState::Minimized;
  if (form.OnScreen()) return raised ? kShowNormal : saved;
  if (command.state) form.WindowState(raised ? WindowState::Normal : *command.state);
  return raised ? kShowNormal : command.applied;
}

/// Half of what is left over, halves to the even neighbour.
int Centered(int available, int taken) { return static_cast<int>(std::nearbyint((available - taken) / 2.0)); }

}  // namespace

void CFormRestore::Init(std::shared_ptr<CAppSettings> AppSettings, bool CenteredByDefault) {
  this->AppSettings(std::move(AppSettings));
  this->CenteredByDefault(CenteredByDefault);
}

void CFormRestore::AppSettings(std::shared_ptr<CAppSettings> settings) {
  if (!settings) kErrors.Raise(kInvalidAppSettings, "Invalid AppSettings object");
  m_appSettings = std::move(settings);
}

void CFormRestore::KeyName(std::string_view name) {
  if (name.empty()) kErrors.Raise(kInvalidKeyName, "Invalid KeyName value");
  m_keyName = name;
}

void CFormRestore::GetPosition(Form& FormObject) {
  kErrors.Guard([&] {
    const PlacementSection section(RequireStore(m_appSettings), m_keyName + "\\" + FormObject.Name());
    const int saved = section.Read("WindowState", "-1");
    if (saved >= 0)
      FormObject.SetPlacement({.showCommand = RestoreCommand(FormObject, saved, m_neverStartMinimized),
                               .minimised = {section.Read("MinPosX"), section.Read("MinPosY")},
                               .maximised = {section.Read("MaxPosX"), section.Read("MaxPosY")},
                               .normal = ReadNormal(section, FormObject)});
    else if (m_centeredByDefault)
      Center(FormObject);
  });
}

void CFormRestore::SavePosition(Form& FormObject) {
  kErrors.Guard([&] {
    const PlacementSection section(RequireStore(m_appSettings), m_keyName + "\\" + FormObject.Name());
    const auto placement = FormObject.GetPlacement();
    if (!placement) return;
    const std::pair<std::string_view, int> values[] = {
        {"WindowState", placement->showCommand},       {"MinPosX", placement->minimised.x},
        {"MinPosY", placement->minimised.y},           {"MaxPosX", placement->maximised.x},
        {"MaxPosY", placement->maximised.y},           {"NormalPosLeft", placement->normal.left},
        {"NormalPosTop", placement->normal.top},       {"NormalPosRight", placement->normal.right},
        {"NormalPosBottom", placement->normal.bottom},
    };
    for (const auto& [name, value] : values) section.Write(name, value);
  });
}

void CFormRestore::Center(Form& form) {
  auto* const peer = form.WindowPeer();
  auto placement = form.GetPlacement();
  if (!peer || !placement) return;
  if (placement->showCommand == kShowNormal) {
    const auto desktop = peer->Desktop();
    auto& normal = placement->normal;
    const Size size{normal.Width(), normal.Height()};
    normal.left = Centered(desktop.Width(), size.width);
    normal.top = Centered(desktop.Height(), size.height);
    normal.right = normal.left + size.width;
    normal.bottom = normal.top + size.height;
  }
  placement->showCommand = CommandForState(form.WindowState());
  form.SetPlacement(*placement);
}

}  // namespace pellora
