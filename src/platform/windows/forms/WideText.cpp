#include "platform/windows/forms/WideText.h"

#include "core/Text.h"
#include "forms/Control.h"

namespace pellora::windows {
namespace {

wchar_t UpperAscii(wchar_t letter) {
  return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

std::size_t FindLetter(const std::wstring& text, char letter) {
  const auto wanted = UpperAscii(static_cast<unsigned char>(letter));
  for (std::size_t i = 0; i < text.size(); ++i)
    if (UpperAscii(text[i]) == wanted) return i;
  return std::wstring::npos;
}

std::wstring DoubleAmpersands(const std::wstring& text) {
  std::wstring result;
  for (const auto letter : text) result.append(letter == L'&' ? 2 : 1, letter);
  return result;
}

}  // namespace

std::wstring Wide(std::string_view text) {
  const auto wide = ToUtf16(text);
  return {wide.begin(), wide.end()};
}

std::string Narrow(std::wstring_view text) { return ToUtf8(std::u16string(text.begin(), text.end())); }

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  const auto length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::wstring NativeCaption(std::string_view caption, char accessKey) {
  const auto shown = Wide(DisplayText(caption));
  if (!accessKey) return DoubleAmpersands(shown);
  const auto place = FindLetter(shown, accessKey);
  if (place == std::wstring::npos)
    return DoubleAmpersands(shown) + L" (&" + UpperAscii(static_cast<unsigned char>(accessKey)) + L")";
  return DoubleAmpersands(shown.substr(0, place)) + L"&" + DoubleAmpersands(shown.substr(place));
}

}  // namespace pellora::windows
