#include "platform/libreoffice/forms/Arrow.h"

#include <array>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <string>
#include <string_view>

#include "forms/ArrowShape.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;

/// Numbers in pictures of the PNG format have their highest byte first.
std::string Number(std::uint32_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFF);
  return bytes;
}

std::uint32_t Crc(std::string_view bytes) {
  std::uint32_t crc = ~0u;
  for (const unsigned char byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
  }
  return ~crc;
}

std::uint32_t Adler(std::string_view bytes) {
  std::uint32_t a = 1, b = 0;
  for (const unsigned char byte : bytes) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  return b << 16 | a;
}

std::string Chunk(const std::string& name, const std::string& data) {
  return Number(static_cast<std::uint32_t>(data.size())) + name + data + Number(Crc(name + data));
}

/// One block as it is, without compression: an arrow has a few kilobytes.
std::string Stored(const std::string& bytes) {
  constexpr std::size_t kMost = 0xFFFF;
  std::string stream = "\x78\x01";
  for (std::size_t at = 0; at < bytes.size(); at += kMost) {
    const auto part = bytes.substr(at, kMost);
    const auto length = static_cast<unsigned>(part.size());
    stream += at + kMost >= bytes.size() ? '\1' : '\0';
    for (const auto number : {length, ~length}) {
      stream += static_cast<char>(number & 0xFF);
      stream += static_cast<char>(number >> 8 & 0xFF);
    }
    stream += part;
  }
  return stream + Number(Adler(bytes));
}

std::string Rows(int side, bool up, std::uint32_t colour) {
  std::string rows;
  for (int y = 0; y < side; ++y) {
    rows += '\0';
    for (int x = 0; x < side; ++x) {
      for (int shift = 16; shift >= 0; shift -= 8) rows += static_cast<char>(colour >> shift & 0xFF);
      rows += static_cast<char>(ArrowCoverage(x, y, side, up));
    }
  }
  return rows;
}

/// Eight bits for each of red, green, blue and alpha.
std::string Png(int side, const std::string& rows) {
  const auto length = Number(static_cast<std::uint32_t>(side));
  const std::string format("\x08\x06\x00\x00\x00", 5);
  return "\x89PNG\r\n\x1a\n" + Chunk("IHDR", length + length + format) + Chunk("IDAT", Stored(rows)) +
         Chunk("IEND", {});
}

}  // namespace

uno::Reference<com::sun::star::graphic::XGraphic> Arrow(const uno::Reference<uno::XComponentContext>& context, int side,
                                                        bool up, std::uint32_t colour) {
  const auto png = Png(side, Rows(side, up, colour));
  const uno::Sequence<sal_Int8> bytes(reinterpret_cast<const sal_Int8*>(png.data()),
                                      static_cast<sal_Int32>(png.size()));
  uno::Sequence<com::sun::star::beans::PropertyValue> medium(1);
  medium[0].Name = "InputStream";
  medium[0].Value <<= com::sun::star::io::SequenceInputStream::createStreamFromSequence(context, bytes);
  return com::sun::star::graphic::GraphicProvider::create(context)->queryGraphic(medium);
}

}  // namespace pellora::libreoffice
