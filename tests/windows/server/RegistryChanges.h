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

/// The name and the text that come with one question each; a value that is no text has none here.
inline void AddValues(HKEY key, const std::string& path, RegistryTree& tree) {
  for (DWORD i = 0;; ++i) {
    wchar_t name[512], text[2048] = L"";
    DWORD length = std::size(name), size = sizeof text - sizeof *text, type = REG_NONE;
    const auto code = RegEnumValueW(key, i, name, &length, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    if (code != ERROR_SUCCESS && code != ERROR_MORE_DATA) return;
    const bool isText = code == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ);
    tree.insert(path + "|" + ole::Narrow(name) + "=" + (isText ? ole::Narrow(text) : ""));
  }
}

inline void AddTree(HKEY above, const std::wstring& keyName, const std::string& path, RegistryTree& tree) {
  // The same key as without the first name.
  if (path == "Software\\Classes\\Wow6432Node\\TypeLib" || path == "Software\\Classes\\Wow6432Node\\Typelib") return;
  RegKey key;
  if (RegOpenKeyExW(above, keyName.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return;
  tree.insert(path);
  AddValues(key.get(), path, tree);
  wchar_t name[512];
  for (DWORD i = 0, length = 512;
       RegEnumKeyExW(key.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, length = 512)
    AddTree(key.get(), name, path + "\\" + ole::Narrow(name), tree);
}

/// The classes of a hive, the user's or the machine's.
inline RegistryTree Classes(HKEY root) {
  RegistryTree tree;
  AddTree(root, L"Software\\Classes", "Software\\Classes", tree);
  return tree;
}

inline std::vector<std::string> Added(const RegistryTree& before, const RegistryTree& after) {
  std::vector<std::string> lines;
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(lines));
  return lines;
}

}  // namespace pellora::windows::test
