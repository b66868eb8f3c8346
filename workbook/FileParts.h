#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/Document.h"
#include "workbook/Xml.h"
#include "workbook/Zip.h"

namespace pellora::workbook {

/// What a sheet's part of a file held beside its cells.
struct SheetPart {
  std::string path;
  /// Of its line in the list of sheets.
  std::string attributes;
  /// The part, its cells left out.
  XmlParts xml;
  /// Attributes of rows other than their number.
  std::map<int, std::string> rows;
  /// Cells whose text is in the file's table of texts (which may have runs of fonts), and formulas that are more than
  /// their text (arrays): both are kept where the cell still holds what it held.
  std::map<CellPlace, std::size_t> texts;
  std::map<CellPlace, std::pair<std::string, std::string>> formulas;
  /// Column widths as read.
  std::map<int, double> widths;
};

/// A file as it was read. Saving starts from it and replaces only what is modelled.
struct Document::FileParts {
  std::vector<ZipEntry> entries;
  std::string workbookPath;
  std::vector<std::string> texts;
  std::map<const Sheet*, SheetPart> sheets;
  /// Workbook names as read.
  std::map<std::string, std::string> names;
  /// Days are counted from 1904.
  bool from1904 = false;

  ZipEntry* Find(std::string_view path);
};

/// Days between the two ways of counting.
inline constexpr double kDaysTo1904 = 1462;

/// The standard letters' margin in a column, by which files count its width wider than the object model, in characters.
inline constexpr double kColumnMargin = 0.7109375;

/// The part that lists the relations of a part: "xl/_rels/workbook.xml.rels" of "xl/workbook.xml".
std::string RelationsPath(std::string_view path);
/// The part that a relation of `source` leads to.
std::string TargetPath(std::string_view source, std::string_view target);

/// Texts of cells as files hold them: characters that XML cannot hold stand as "_x0001_".
std::string DecodedCellText(std::string_view text);
std::string EncodedCellText(std::string_view text);

/// Reads a workbook file's bytes, and writes them. Both raise 1004 with a plain text.
Document ReadWorkbook(std::string_view bytes);
std::string WriteWorkbook(const Document& document);

}  // namespace pellora::workbook
