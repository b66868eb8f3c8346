#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace pellora {

class CAppSettings;
class Form;

/// Remembers where a form was on screen and puts it there again, through a settings store, in the section
/// `KeyName` \ form name. Errors have the source "Pellora.CFormRestore": 0x80044499 no store, 0x8004449A invalid store,
/// 0x8004449B empty `KeyName`, 0x8004449C anything else.
class CFormRestore {
 public:
  void Init(std::shared_ptr<CAppSettings> AppSettings, bool CenteredByDefault);
  const std::shared_ptr<CAppSettings>& AppSettings() const { return m_appSettings; }
  void AppSettings(std::shared_ptr<CAppSettings> settings);
  bool CenteredByDefault() const { return m_centeredByDefault; }
  void CenteredByDefault(bool centered) { m_centeredByDefault = centered; }
  const std::string& KeyName() const { return m_keyName; }
  void KeyName(std::string_view name);
  bool NeverStartMinimized() const { return m_neverStartMinimized; }
  void NeverStartMinimized(bool never) { m_neverStartMinimized = never; }

  /// Restores the form's saved placement, or centres it on the desktop when it has none and `CenteredByDefault`.
  void GetPosition(Form& FormObject);
  /// Saves the form's placement; nothing when the platform does not tell it.
  void SavePosition(Form& FormObject);

 private:
  void Center(Form& form);

  std::shared_ptr<CAppSettings> m_appSettings;
  bool m_centeredByDefault = true;
  bool m_neverStartMinimized = false;
  std::string m_keyName = "Windows settings";
};

}  // namespace pellora
