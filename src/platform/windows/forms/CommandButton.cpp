#include "platform/windows/forms/CommandButton.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "forms/ArrowShape.h"
#include "platform/windows/forms/Form.h"

namespace pellora::windows {
namespace {

/// Blue, green, red, alpha, not premultiplied, as icons have them.
std::vector<std::uint32_t> ArrowPixels(int side, bool up, COLORREF colour) {
  const auto rgb = static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < side; ++y)
    for (int x = 0; x < side; ++x)
      pixels.push_back(static_cast<std::uint32_t>(ArrowCoverage(x, y, side, up)) << 24 | rgb);
  return pixels;
}

BitmapOwner TrueColourBitmap(int side, const std::vector<std::uint32_t>& pixels) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = side;
  info.bmiHeader.biHeight = -side;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  BitmapOwner bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (bitmap) std::copy(pixels.begin(), pixels.end(), static_cast<std::uint32_t*>(bits));
  return bitmap;
}

/// One bit a pixel, rows padded to 16 bits, set where the picture is clear: disabled buttons draw the mask's shape.
std::vector<std::uint8_t> MaskOf(int side, const std::vector<std::uint32_t>& pixels) {
  const auto stride = static_cast<std::size_t>((side + 15) / 16 * 2);
  const auto width = static_cast<std::size_t>(side);
  std::vector<std::uint8_t> mask(stride * width, 0);
  for (std::size_t i = 0; i < pixels.size(); ++i)
    if (pixels[i] >> 24 < 0x80)
      mask[i / width * stride + i % width / 8] |= static_cast<std::uint8_t>(0x80 >> i % width % 8);
  return mask;
}

HICON MakeArrow(int side, bool up) {
  const auto pixels = ArrowPixels(side, up, ::GetSysColor(COLOR_BTNTEXT));
  const auto colours = TrueColourBitmap(side, pixels);
  const BitmapOwner mask(::CreateBitmap(side, side, 1, 1, MaskOf(side, pixels).data()));
  ICONINFO icon{TRUE, 0, 0, mask.get(), colours.get()};
  return ::CreateIconIndirect(&icon);
}

}  // namespace

CommandButtonPeer::CommandButtonPeer(WindowsFormPeer& form, pellora::CommandButton& button) : PeerOf(form, button) {
  const DWORD picture = button.Picture() == ButtonPicture::None ? 0u : BS_ICON;
  Make(WC_BUTTONW, BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP | picture);
}

void CommandButtonPeer::FontChanged() {
  PeerOf::FontChanged();
  DrawPicture();
}

void CommandButtonPeer::ColoursChanged() {
  PeerOf::ColoursChanged();
  DrawPicture();
}

void CommandButtonPeer::DrawPicture() {
  if (!Window() || Self().Picture() == ButtonPicture::None) return;
  IconOwner arrow(MakeArrow(m_form.GetFonts().Scale(kArrowDip), Self().Picture() == ButtonPicture::ArrowUp));
  Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(arrow.get()));
  m_picture = std::move(arrow);
}

void CommandButtonPeer::ShowAsDefault(bool isDefault) {
  if (!Window()) return;
  const auto style = static_cast<WPARAM>(::GetWindowLongPtrW(Window(), GWL_STYLE)) & 0xFFFFu & ~WPARAM{BS_TYPEMASK};
  Send(BM_SETSTYLE, style | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), TRUE);
}

void CommandButtonPeer::Update(Aspect aspect) {
  if (aspect == Aspect::Text) SetWindowCaption();
}

void CommandButtonPeer::OnCommand(WORD code) {
  if (code == BN_CLICKED) Self().PeerClick();
  if (code == BN_SETFOCUS) FocusReported();
}

}  // namespace pellora::windows
