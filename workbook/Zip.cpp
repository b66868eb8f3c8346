#include "workbook/Zip.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>

#include "workbook/Refusal.h"

namespace pellora::workbook {
namespace {

constexpr std::uint32_t kLocal = 0x04034b50, kCentral = 0x02014b50, kEnd = 0x06054b50;
constexpr std::size_t kLocalSize = 30, kCentralSize = 46, kEndSize = 22, kLongestComment = 65535;
constexpr std::size_t kMostEntries = 10000;
constexpr std::size_t kMostUnpacked = std::size_t{512} << 20;
constexpr std::uint16_t kEncrypted = 1, kUtf8Names = 0x800, kStored = 0, kDeflated = 8;
// 1980-01-01, the first day that an archive can name.
constexpr std::uint16_t kFixedDate = 0x21;

[[noreturn]] void RefuseArchive() { Refuse("The file is not a workbook, or it is damaged"); }

// Little-endian numbers of a byte text, never outside of it.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  if (at > bytes.size() || size > bytes.size() - at) RefuseArchive();
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size; ++i) number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return number;
}
std::uint16_t Word(std::string_view bytes, std::size_t at) { return static_cast<std::uint16_t>(Number(bytes, at, 2)); }
std::uint32_t Long(std::string_view bytes, std::size_t at) { return Number(bytes, at, 4); }

std::string_view Slice(std::string_view bytes, std::size_t at, std::size_t size) {
  if (at > bytes.size() || size > bytes.size() - at) RefuseArchive();
  return bytes.substr(at, size);
}

std::size_t FindEnd(std::string_view bytes) {
  if (bytes.size() < kEndSize) RefuseArchive();
  const std::size_t last = bytes.size() - kEndSize;
  const std::size_t first = last > kLongestComment ? last - kLongestComment : 0;
  for (std::size_t at = last + 1; at-- > first;)
    if (Long(bytes, at) == kEnd) return at;
  RefuseArchive();
}

// Grows with what really comes out: the size that the archive states is not believed.
std::string Inflate(std::string_view packed, std::size_t most) {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) RefuseArchive();
  struct Ender {
    z_stream* stream;
    ~Ender() { inflateEnd(stream); }
  } const ender{&stream};
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  std::string out;
  char buffer[65536];
  for (int result = Z_OK; result != Z_STREAM_END;) {
    stream.next_out = reinterpret_cast<Bytef*>(buffer);
    stream.avail_out = sizeof buffer;
    result = inflate(&stream, Z_NO_FLUSH);
    const std::size_t got = sizeof buffer - stream.avail_out;
    if ((result != Z_OK && result != Z_STREAM_END) || (result == Z_OK && got == 0)) RefuseArchive();
    if (got > most - out.size()) Refuse("The file unpacks to more than a workbook may hold");
    out.append(buffer, got);
  }
  return out;
}

std::uint32_t Sum(std::string_view data) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<z_size_t>(data.size())));
}

// The file that a line of the directory at `at` describes.
ZipEntry ReadEntry(std::string_view bytes, std::size_t at, std::size_t most) {
  if (Long(bytes, at) != kCentral) RefuseArchive();
  if (Word(bytes, at + 8) & kEncrypted) Refuse("The file is encrypted");
  const std::uint16_t method = Word(bytes, at + 10);
  const std::uint32_t sum = Long(bytes, at + 16), packedSize = Long(bytes, at + 20), local = Long(bytes, at + 42);
  ZipEntry entry{std::string(Slice(bytes, at + kCentralSize, Word(bytes, at + 28))), {}};
  if (Long(bytes, local) != kLocal) RefuseArchive();
  const std::size_t data = local + kLocalSize + Word(bytes, local + 26) + Word(bytes, local + 28);
  const std::string_view packed = Slice(bytes, data, packedSize);
  if (method != kStored && method != kDeflated) RefuseArchive();
  if (method == kStored && packed.size() > most) Refuse("The file unpacks to more than a workbook may hold");
  entry.data = method == kStored ? std::string(packed) : Inflate(packed, most);
  if (Sum(entry.data) != sum) RefuseArchive();
  return entry;
}

std::string Deflate(std::string_view data) {
  z_stream stream{};
  deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL - 1, Z_DEFAULT_STRATEGY);
  std::string out(deflateBound(&stream, static_cast<uLong>(data.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  const int result = deflate(&stream, Z_FINISH);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  if (result != Z_STREAM_END) Refuse("The workbook could not be packed");
  return out;
}

void Append(std::string& out, std::uint64_t number, int size) {
  for (int i = 0; i < size; ++i) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

// What the local header and the directory say alike.
std::string Description(const ZipEntry& entry, std::string_view packed) {
  std::string text;
  Append(text, 20, 2);
  Append(text, kUtf8Names, 2);
  Append(text, kDeflated, 2);
  Append(text, 0, 2);
  Append(text, kFixedDate, 2);
  Append(text, Sum(entry.data), 4);
  Append(text, packed.size(), 4);
  Append(text, entry.data.size(), 4);
  Append(text, entry.name.size(), 2);
  Append(text, 0, 2);
  return text;
}

}  // namespace

std::vector<ZipEntry> ReadZip(std::string_view bytes) {
  const std::size_t end = FindEnd(bytes);
  const std::size_t count = Word(bytes, end + 10);
  std::size_t at = Long(bytes, end + 16);
  if (count > kMostEntries || Word(bytes, end + 8) != count) RefuseArchive();
  std::vector<ZipEntry> entries;
  std::size_t left = kMostUnpacked;
  for (std::size_t i = 0; i < count; ++i) {
    entries.push_back(ReadEntry(bytes, at, left));
    left -= entries.back().data.size();
    at += kCentralSize + Word(bytes, at + 28) + Word(bytes, at + 30) + Word(bytes, at + 32);
  }
  return entries;
}

std::string WriteZip(const std::vector<ZipEntry>& entries) {
  std::string out, directory;
  for (const auto& entry : entries) {
    const std::string packed = Deflate(entry.data);
    const std::string description = Description(entry, packed);
    const std::size_t offset = out.size();
    Append(out, kLocal, 4);
    out += description + entry.name + packed;
    Append(directory, kCentral, 4);
    Append(directory, 20, 2);
    directory += description;
    // Comment, disk and attributes: none.
    directory.append(10, char{0});
    Append(directory, offset, 4);
    directory += entry.name;
  }
  const std::size_t start = out.size();
  out += directory;
  Append(out, kEnd, 4);
  Append(out, 0, 4);
  Append(out, entries.size(), 2);
  Append(out, entries.size(), 2);
  Append(out, directory.size(), 4);
  Append(out, start, 4);
  Append(out, 0, 2);
  return out;
}

}  // namespace pellora::workbook
