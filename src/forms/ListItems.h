#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pellora {

/// Keeps a native list's items equal to a control's with as few calls as the change needs: what both have at the
/// beginning and at the end stays.
class ListItems {
 public:
  using Remove = std::function<void(int index)>;
  using Insert = std::function<void(int index, const std::string& item)>;

  /// True when anything had to be changed.
  bool Follow(const std::vector<std::string>& wanted, const Remove& remove, const Insert& insert);

 private:
  std::vector<std::string> m_shown;
};

}  // namespace pellora
