#pragma once

#include <string>

#include "forms/Control.h"

namespace pellora {

/// One page of a `Pages` control.
class Page : public Container {
 public:
  Page(class Pages& parent, std::string_view name, std::string_view caption);
};

/// Pages of which one is shown. Its children are its `Page`s, counted from 0.
class Pages : public Container {
 public:
  Pages(Container& parent, std::string_view name);

  int PageCount() const { return static_cast<int>(Children().size()); }
  /// Raises 381 outside.
  Page& PageAt(int index) const;
  int CurrentPage() const { return m_current; }
  /// Raises `Switch` when another page is shown; 380 outside.
  void CurrentPage(int index);

  /// Whether tabs are drawn; without them code is the way to switch. Set before the form is shown.
  bool ShowTabs() const { return m_showTabs; }
  void ShowTabs(bool show) { m_showTabs = show; }
  bool TabStop() const override { return m_showTabs; }

  std::function<void()> Switch;

  /// The user has chosen a tab.
  void PeerPage(int index);

 private:
  int m_current = 0;
  bool m_showTabs = true;
};

}  // namespace pellora
