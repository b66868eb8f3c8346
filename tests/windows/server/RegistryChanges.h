#pragma once

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "platform/windows/ole/Owners.h"
#include "platform/windows/services/RegKey.h"

namespace pellora::windows::test {

/// Everything below a key: a line "key" a key and a line "key|name=text" a value.
using RegistryTree = std::set<std::string>;

inline void AddValues(HKEY key, const std::string& path, RegistryTree& tree) {
  wchar_t name[512];
  for (DWORD i = 0, length = 512;
       RegEnumValueW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i, length = 512) {
    wchar_t text[2048] = L"";
    DWORD size = sizeof text;
    RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size);
    tree.insert(path + "|" + ole::Narrow(name) + "=" + ole::Narrow(text));
  }
}

inline void AddTree(HKEY root, const std::wstring& path, RegistryTree& tree) {
  // The same key as without the first name.
  if (path == L"Software\\Classes\\Wow6432Node\\TypeLib" || path == L"Software\\Classes\\Wow6432Node\\Typelib") return;
  RegKey key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return;
  tree.insert(ole::Narrow(path));
  AddValues(key.get(), ole::Narrow(path), tree);
  wchar_t name[512];
  for (DWORD i = 0, length = 512;
       RegEnumKeyExW(key.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, length = 512)
    AddTree(root, path + L"\\" + name, tree);
}

/// The classes of a hive, the user's or the machine's.
inline RegistryTree Classes(HKEY root) {
  RegistryTree tree;
  AddTree(root, L"Software\\Classes", tree);
  return tree;
}

inline std::vector<std::string> Added(const RegistryTree& before, const RegistryTree& after) {
  std::vector<std::string> lines;
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(lines));
  return lines;
}

}  // namespace pellora::windows::test
