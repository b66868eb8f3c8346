#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pellora::workbook {

/// One file of an archive, unpacked.
struct ZipEntry {
  std::string name;
  std::string data;
};

/// Unpacks an archive held in memory: stored and deflated files, checked sums. Raises 1004 with a plain text for what
/// is no archive, is damaged, encrypted or split, or unpacks to more than a spreadsheet plausibly holds.
std::vector<ZipEntry> ReadZip(std::string_view bytes);

/// Packs files into an archive, in their order, with a fixed time stamp: equal content gives equal bytes.
std::string WriteZip(const std::vector<ZipEntry>& entries);

}  // namespace pellora::workbook
