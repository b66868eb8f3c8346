#include <algorithm>

#include "core/Error.h"
#include "platform/headless/Headless.h"
#include "platform/headless/HeadlessFormPeer.h"

namespace pellora::headless {

Size HeadlessMeasurer::Measure(std::string_view text, TextStyle style) const {
  // Every byte that does not continue a character begins one.
  const auto characters = static_cast<int>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
  const auto heading = style == TextStyle::Heading;
  return {Scale(characters * (heading ? 8 : 6)), Scale(heading ? 17 : 13)};
}

std::unique_ptr<FormPeer> HeadlessToolkit::CreatePeer(Form& form) {
  if (refusesPeer) throw Error(refusesPeer);
  return std::make_unique<HeadlessFormPeer>(*this, form);
}

MessageAnswer HeadlessToolkit::ShowMessage(const Message& message) { return user.AnswerMessage(message); }

void HeadlessToolkit::Beep() { user.CountBeep(); }

}  // namespace pellora::headless
