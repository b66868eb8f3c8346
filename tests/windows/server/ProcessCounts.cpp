#include "ProcessCounts.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace pellora::windows::test {
namespace {

template <class Function>
Function* SystemFunction(const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

// Pens, brushes, fonts, bitmaps, device contexts: every handle there can be is asked for its kind.
DWORD CountGdi() {
  struct Entry {
    ULONG64 object;
    ULONG owner;
    USHORT unique;
    UCHAR kind, flags;
    ULONG64 user;
  };
  struct Basics {
    LONG_PTR status;
    std::byte* block;
    ULONG_PTR more[4];
  };
  using Query = LONG WINAPI(HANDLE, int, void*, ULONG, ULONG*);
  constexpr int kTableInBlock = sizeof(void*) == 8 ? 0xF8 : 0x94;
  Basics basics{};
  if (SystemFunction<Query>("NtQueryInformationProcess")(GetCurrentProcess(), 0, &basics, sizeof basics, nullptr) != 0)
    return 0;
  const auto* table = *reinterpret_cast<Entry* const*>(basics.block + kTableInBlock);
  if (!table) return 0;
  return static_cast<DWORD>(std::count_if(table, table + 0x10000, [](const Entry& e) { return e.kind != 0; }));
}

// Windows and menus of this process, and icons and pointers.
DWORD CountUser() {
  DWORD count = 0;
  for (ULONG_PTR handle = 0x20; handle < 0xFFFE; handle += 2) {
    DWORD process = 0;
    const auto window = reinterpret_cast<HWND>(handle);
    if (IsWindow(window)) {
      GetWindowThreadProcessId(window, &process);
      count += process == GetCurrentProcessId();
    } else if (IsMenu(reinterpret_cast<HMENU>(handle))) {
      ++count;
    } else if (ICONINFO icon; GetIconInfo(reinterpret_cast<HICON>(handle), &icon)) {
      ++count;
      DeleteObject(icon.hbmMask);
      DeleteObject(icon.hbmColor);
    }
  }
  return count;
}

// The memory that is this process's alone.
SIZE_T CountBytes() {
  SIZE_T bytes = 0;
  MEMORY_BASIC_INFORMATION area{};
  for (const std::byte* at = nullptr; VirtualQuery(at, &area, sizeof area); at += area.RegionSize)
    if (area.State == MEM_COMMIT && area.Type == MEM_PRIVATE) bytes += area.RegionSize;
  return bytes;
}

}  // namespace

// The kernel's handles of this process, out of the list of all handles.
DWORD CountHandles() {
  struct Entry {
    USHORT process, trace;
    UCHAR kind, attributes;
    USHORT handle;
    void* object;
    ULONG access;
  };
  struct List {
    ULONG count;
    Entry entries[1];
  };
  using Query = LONG WINAPI(int, void*, ULONG, ULONG*);
  constexpr int kAllHandles = 16;
  const auto query = SystemFunction<Query>("NtQuerySystemInformation");
  std::vector<std::byte> buffer(4 << 20);
  if (query(kAllHandles, buffer.data(), static_cast<ULONG>(buffer.size()), nullptr) != 0) return 0;
  const auto* list = reinterpret_cast<const List*>(buffer.data());
  const auto self = static_cast<USHORT>(GetCurrentProcessId());
  return static_cast<DWORD>(
      std::count_if(list->entries, list->entries + list->count, [&](const Entry& e) { return e.process == self; }));
}

int CountClasses(HMODULE module) {
  constexpr int kFirstAtom = 0xC000, kLastAtom = 0xFFFF;
  int count = 0;
  for (int atom = kFirstAtom; atom <= kLastAtom; ++atom) {
    WNDCLASSEXW info{};
    info.cbSize = sizeof info;
    count += GetClassInfoExW(module, MAKEINTATOM(atom), &info) != FALSE;
  }
  return count;
}

Counts CountAll() {
  return {CountHandles(), CountGdi(), CountUser(), CountClasses(GetModuleHandleW(nullptr)), CountBytes()};
}

}  // namespace pellora::windows::test
