#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/Windows.h"

namespace pellora::windows::test {

/// How well two colours can be told apart, 1 to 21: the ratio of their luminances as rules for accessible screens
/// define it.
inline double Contrast(COLORREF one, COLORREF two) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  const auto luminance = [&](COLORREF colour) {
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) + 0.0722 * linear(GetBValue(colour));
  };
  const auto [dark, light] = std::minmax({luminance(one), luminance(two)});
  return (light + 0.05) / (dark + 0.05);
}

/// What a window shows of an area of itself.
class Pixels {
 public:
  Pixels(HWND window, const RECT& area)
      : m_width(static_cast<int>(area.right - area.left)), m_height(static_cast<int>(area.bottom - area.top)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const auto source = ::GetDC(window);
    const auto target = ::CreateCompatibleDC(source);
    const auto bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const auto before = ::SelectObject(target, bitmap);
    ::BitBlt(target, 0, 0, m_width, m_height, source, static_cast<int>(area.left), static_cast<int>(area.top), SRCCOPY);
    ::GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    if (first) m_pixels.assign(first, first + m_width * m_height);
    ::SelectObject(target, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(target);
    ::ReleaseDC(window, source);
  }

  /// A part of it.
  Pixels Part(const RECT& area) const {
    Pixels part;
    part.m_width = static_cast<int>(area.right - area.left);
    part.m_height = static_cast<int>(area.bottom - area.top);
    for (int y = 0; y < part.m_height; ++y) {
      const auto row = m_pixels.begin() + (area.top + y) * m_width + area.left;
      part.m_pixels.insert(part.m_pixels.end(), row, row + part.m_width);
    }
    return part;
  }

  COLORREF At(int x, int y) const { return Colour(m_pixels[static_cast<std::size_t>(y * m_width + x)]); }

  /// The colour most of it has.
  COLORREF Ground() const {
    std::map<std::uint32_t, int> counts;
    for (const auto pixel : m_pixels) ++counts[pixel];
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? 0 : Colour(most->first);
  }

  /// The best contrast that anything has to the ground.
  double BestContrast() const {
    const auto ground = Ground();
    double best = 1;
    std::map<std::uint32_t, bool> seen;
    for (const auto pixel : m_pixels)
      if (!std::exchange(seen[pixel], true)) best = std::max(best, Contrast(ground, Colour(pixel)));
    return best;
  }

  bool operator==(const Pixels&) const = default;

  /// To look at: a picture in the simplest format there is.
  void Save(const std::string& path) const {
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << m_width << " " << m_height << "\n255\n";
    for (const auto pixel : m_pixels)
      for (const int shift : {16, 8, 0}) file.put(static_cast<char>(pixel >> shift & 0xFF));
  }

 private:
  Pixels() = default;
  static COLORREF Colour(std::uint32_t pixel) { return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF); }

  int m_width = 0;
  int m_height = 0;
  std::vector<std::uint32_t> m_pixels;
};

inline Pixels PixelsOf(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  return Pixels(window, client);
}

/// Keeps what a window shows, where somebody wants to look at it: in the folder that PELLORA_PICTURES names.
inline void KeepPicture(HWND window, const std::string& name) {
  const auto* folder = std::getenv("PELLORA_PICTURES");
  if (folder) PixelsOf(window).Save(std::string(folder) + "/" + name + ".ppm");
}

}  // namespace pellora::windows::test
