#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/Text.h"
#include "workbook/Area.h"
#include "workbook/FileParts.h"
#include "workbook/Refusal.h"
#include "workbook/Shift.h"
#include "workbook/Showing.h"
#include "workbook/Styles.h"

namespace pellora::workbook {
namespace {

using Kind = XmlReader::Kind;

// A part's relations: id to type and part.
struct Relation {
  std::string id, type, path;
};

std::vector<Relation> RelationsOf(Document::FileParts& parts, std::string_view source) {
  std::vector<Relation> relations;
  const ZipEntry* entry = parts.Find(RelationsPath(source));
  if (!entry) return relations;
  for (const auto& child : XmlParts::Of(entry->data).children) {
    const std::string type = Attribute(child.attributes, "Type").value_or("");
    relations.push_back({Attribute(child.attributes, "Id").value_or(""), type.substr(type.find_last_of('/') + 1),
                         TargetPath(source, Attribute(child.attributes, "Target").value_or(""))});
  }
  return relations;
}

const Relation* ByType(const std::vector<Relation>& relations, std::string_view type) {
  for (const auto& relation : relations)
    if (relation.type == type) return &relation;
  return nullptr;
}

// The texts of an item, its runs joined and its reading aids left out. The reader stands on the item.
std::string RichText(XmlReader& reader) {
  std::string text;
  for (const std::size_t depth = reader.Depth(); reader.Next() != Kind::End && reader.Depth() >= depth;) {
    if (reader.kind() != Kind::Open) continue;
    if (reader.Name() == "rPh")
      reader.Whole();
    else if (reader.Name() == "t")
      text += reader.InnerText();
  }
  return DecodedCellText(text);
}

std::vector<std::string> ReadTexts(std::string_view xml) {
  std::vector<std::string> texts;
  for (XmlReader reader(xml); reader.Next() != Kind::End;)
    if (reader.kind() == Kind::Open && reader.Name() == "si") texts.push_back(RichText(reader));
  return texts;
}

double NumberOf(std::string_view text) {
  double value = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (fault != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
    Refuse("A cell of the file holds no number");
  return value;
}

// One cell's element, as text.
struct RawCell {
  std::string type, value, text, formula, formulaAttributes, wholeFormula;
  bool hasFormula = false, hasText = false;
};

RawCell ReadRawCell(XmlReader& reader) {
  RawCell raw;
  raw.type = Attribute(reader.Attributes(), "t").value_or("n");
  for (const std::size_t depth = reader.Depth(); reader.Next() != Kind::End && reader.Depth() >= depth;) {
    if (reader.kind() != Kind::Open) continue;
    if (reader.Name() == "v") {
      raw.value = reader.InnerText();
    } else if (reader.Name() == "is") {
      raw.text = RichText(reader);
      raw.hasText = true;
    } else if (reader.Name() == "f") {
      raw.hasFormula = true;
      raw.formulaAttributes = reader.Attributes();
      XmlReader inner(raw.wholeFormula = reader.Whole());
      inner.Next();
      raw.formula = inner.InnerText();
    } else {
      reader.Whole();
    }
  }
  return raw;
}

class SheetReader {
 public:
  SheetReader(const Document::FileParts& parts, const StyleBook& styles, Sheet& sheet, SheetPart& part)
      : m_parts(parts), m_styles(styles), m_sheet(sheet), m_part(part) {}

  void Read(std::string_view xml) {
    m_part.xml = XmlParts::Of(xml);
    if (auto* columns = m_part.xml.Find("cols")) ReadColumns(columns->whole);
    m_part.widths = m_sheet.columnWidths;
    auto* data = m_part.xml.Find("sheetData");
    if (!data) return;
    ReadCells(data->whole);
    data->whole.clear();
  }

 private:
  void ReadColumns(std::string_view xml) {
    for (const auto& column : XmlParts::Of(xml).children) {
      const auto width = Attribute(column.attributes, "width");
      const int first = NumberAttribute(column.attributes, "min", 1);
      const int last = std::min(NumberAttribute(column.attributes, "max", first), kMaxColumns);
      if (!width || first < 1) continue;
      const double characters = std::round(std::max(0.0, NumberOf(*width) - kColumnMargin) * 100) / 100;
      for (int i = first; i <= last; ++i) m_sheet.columnWidths[i] = characters;
    }
  }

  void ReadCells(std::string_view xml) {
    int row = 0, column = 0;
    for (XmlReader reader(xml); reader.Next() != Kind::End;) {
      if (reader.kind() != Kind::Open) continue;
      if (reader.Name() == "row") {
        row = NumberAttribute(reader.Attributes(), "r", row + 1);
        column = 0;
        KeepRow(row, reader.Attributes());
      } else if (reader.Name() == "c") {
        CellPlace place{row, column + 1};
        if (const auto address = Attribute(reader.Attributes(), "r")) place = PlaceOf(*address);
        row = place.row, column = place.column;
        if (!Area::Of(place).Valid()) Refuse("The file has a cell outside of the sheet");
        const int style = NumberAttribute(reader.Attributes(), "s", 0);
        Keep(place, style, ReadRawCell(reader));
      }
    }
  }

  static CellPlace PlaceOf(std::string_view address) {
    const auto place = ParseCell(address);
    if (!place) Refuse("The file has a cell outside of the sheet");
    return *place;
  }

  void KeepRow(int row, std::string_view attributes) {
    if (row < 1 || row > kMaxRows) Refuse("The file has a row outside of the sheet");
    const std::string rest = WithAttribute(WithAttribute(attributes, "r", {}), "spans", {});
    if (!rest.empty()) m_part.rows[row] = rest;
  }

  void Keep(CellPlace place, int style, const RawCell& raw) {
    const bool nothing = raw.value.empty() && !raw.hasFormula && !raw.hasText;
    if (nothing && style == 0) return;
    Cell& cell = m_sheet.At(place);
    cell.format = m_styles.LookOf(style);
    cell.value = ValueOf(place, style, raw);
    if (raw.hasFormula) KeepFormula(place, cell, raw);
  }

  Variant ValueOf(CellPlace place, int style, const RawCell& raw) {
    if (raw.hasText) return raw.text;
    if (raw.type == "s") return SharedText(place, raw.value);
    if (raw.type == "str") return DecodedCellText(raw.value);
    if (raw.value.empty()) return {};
    if (raw.type == "b") return raw.value == "1" || raw.value == "true";
    if (raw.type == "e") return ErrorOf(raw.value);
    if (raw.type == "d") return raw.value;
    const double number = NumberOf(raw.value);
    if (!m_styles.ShowsDates(style)) return number;
    return Variant::Date(number + (m_parts.from1904 ? kDaysTo1904 : 0));
  }

  static Variant ErrorOf(std::string_view text) {
    const std::int32_t code = ErrorCodeOf(text);
    return Variant::CellError(code != 0 ? code : kNotAvailable);
  }

  Variant SharedText(CellPlace place, std::string_view value) {
    const double number = NumberOf(value);
    if (!(number >= 0 && number < static_cast<double>(m_parts.texts.size())))
      Refuse("A cell of the file holds a text that is not there");
    const auto index = static_cast<std::size_t>(number);
    m_part.texts[place] = index;
    return m_parts.texts[index];
  }

  void KeepFormula(CellPlace place, Cell& cell, const RawCell& raw) {
    const std::string type = Attribute(raw.formulaAttributes, "t").value_or("normal");
    const int shared = NumberAttribute(raw.formulaAttributes, "si", -1);
    if (!raw.formula.empty()) cell.formula = "=" + raw.formula;
    if (type == "shared" && !raw.formula.empty()) m_shared[shared] = {place, cell.formula};
    if (const auto master = m_shared.find(shared); type == "shared" && raw.formula.empty() && master != m_shared.end())
      cell.formula = ShiftFormula(master->second.second, place.row - master->second.first.row,
                                  place.column - master->second.first.column);
    if (type == "array" || type == "dataTable") m_part.formulas[place] = {cell.formula, raw.wholeFormula};
  }

  const Document::FileParts& m_parts;
  const StyleBook& m_styles;
  Sheet& m_sheet;
  SheetPart& m_part;
  std::map<int, std::pair<CellPlace, std::string>> m_shared;
};

// Workbook names that macros use; names of one sheet and the program's own are kept but not modelled.
void ReadNames(Document& document, Document::FileParts& parts, std::string_view xml) {
  for (XmlReader reader(xml); reader.Next() != Kind::End;) {
    if (reader.kind() != Kind::Open || reader.Name() != "definedName") continue;
    const std::string name = Attribute(reader.Attributes(), "name").value_or("");
    const bool modelled = !Attribute(reader.Attributes(), "localSheetId") && !name.starts_with("_xlnm");
    const std::string meaning = "=" + reader.InnerText();
    if (!modelled) continue;
    document.AddName(name, meaning);
    parts.names[name] = meaning;
  }
}

void ReadSheets(Document& document, Document::FileParts& parts, XmlParts& book, const std::vector<Relation>& relations,
                const StyleBook& styles) {
  const auto* list = book.Find("sheets");
  if (!list) Refuse("The file holds no sheets");
  for (const auto& line : XmlParts::Of(list->whole).children) {
    const std::string id = PrefixedAttribute(line.attributes, "id").value_or("");
    const auto relation =
        std::find_if(relations.begin(), relations.end(), [&](const Relation& one) { return one.id == id; });
    if (relation == relations.end()) Refuse("The file lacks one of its sheets");
    Sheet& sheet = document.AddSheet(Attribute(line.attributes, "name").value_or(""));
    SheetPart& part = parts.sheets[&sheet];
    part.path = relation->path;
    part.attributes = line.attributes;
    const ZipEntry* entry = parts.Find(part.path);
    if (!entry) Refuse("The file lacks one of its sheets");
    // Sheets of charts have no cells and are kept as they are.
    if (relation->type == "worksheet") SheetReader(parts, styles, sheet, part).Read(entry->data);
  }
  if (document.sheets.empty()) Refuse("The file holds no sheets");
}

}  // namespace

Document ReadWorkbook(std::string_view bytes) {
  Document document;
  auto parts = std::make_shared<Document::FileParts>();
  parts->entries = ReadZip(bytes);
  const auto top = RelationsOf(*parts, "");
  const Relation* main = ByType(top, "officeDocument");
  const ZipEntry* entry = main ? parts->Find(main->path) : nullptr;
  if (!entry) Refuse("The file is an archive, but no workbook");
  parts->workbookPath = entry->name;
  XmlParts book = XmlParts::Of(entry->data);
  if (const auto* properties = book.Find("workbookPr")) {
    const auto value = Attribute(properties->attributes, "date1904");
    parts->from1904 = value && (*value == "1" || *value == "true");
  }
  const auto relations = RelationsOf(*parts, parts->workbookPath);
  const auto textOf = [&](std::string_view type) -> std::string_view {
    const Relation* relation = ByType(relations, type);
    const ZipEntry* part = relation ? parts->Find(relation->path) : nullptr;
    return part ? std::string_view(part->data) : std::string_view();
  };
  if (const auto texts = textOf("sharedStrings"); !texts.empty()) parts->texts = ReadTexts(texts);
  const auto styles = textOf("styles");
  ReadSheets(document, *parts, book, relations, StyleBook(styles.empty() ? StyleBook::Standard() : styles));
  if (const auto* names = book.Find("definedNames")) ReadNames(document, *parts, names->whole);
  if (const auto* views = book.Find("bookViews"))
    for (const auto& view : XmlParts::Of(views->whole).children) {
      const int active = NumberAttribute(view.attributes, "activeTab", 0);
      if (active > 0 && static_cast<std::size_t>(active) < document.sheets.size())
        document.active = static_cast<std::size_t>(active);
    }
  document.fileParts = std::move(parts);
  return document;
}

}  // namespace pellora::workbook
