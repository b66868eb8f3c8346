#include <algorithm>
#include <set>

#include "core/Text.h"
#include "workbook/FileParts.h"
#include "workbook/Refusal.h"
#include "workbook/SheetWriter.h"
#include "workbook/Styles.h"

namespace pellora::workbook {
namespace {

constexpr std::string_view kRelationTypes = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view kContentTypes = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
constexpr std::string_view kTypesPath = "[Content_Types].xml";

constexpr std::string_view kEmptyTypes =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="xml" ContentType="application/xml"/><Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/></Types>)";
constexpr std::string_view kEmptyTop =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/></Relationships>)";
constexpr std::string_view kEmptyRelations =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"></Relationships>)";
constexpr std::string_view kEmptyBook =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"><bookViews><workbookView/></bookViews><sheets></sheets></workbook>)";

// What a workbook that came from no file starts from.
Document::FileParts EmptyParts() {
  Document::FileParts parts;
  parts.workbookPath = "xl/workbook.xml";
  parts.entries = {{std::string(kTypesPath), std::string(kEmptyTypes)},
                   {"_rels/.rels", std::string(kEmptyTop)},
                   {parts.workbookPath, std::string(kEmptyBook)},
                   {RelationsPath(parts.workbookPath), std::string(kEmptyRelations)}};
  return parts;
}

class Writer {
 public:
  explicit Writer(const Document& document)
      : m_document(document),
        m_parts(document.fileParts ? *document.fileParts : EmptyParts()),
        m_types(Read(kTypesPath)),
        m_relations(Read(RelationsPath(m_parts.workbookPath))),
        m_book(Read(m_parts.workbookPath)) {}

  std::string Text() {
    DropCalculationChain();
    const std::string stylesPath = StylesPath();
    const ZipEntry* held = m_parts.Find(stylesPath);
    StyleBook styles(held ? std::string_view(held->data) : StyleBook::Standard());
    WriteSheets(styles);
    WriteNames();
    WriteActive();
    AskForCalculation();
    Put(stylesPath, styles.Text());
    Put(std::string(kTypesPath), m_types.Text());
    Put(RelationsPath(m_parts.workbookPath), m_relations.Text());
    Put(m_parts.workbookPath, m_book.Text());
    return WriteZip(m_parts.entries);
  }

 private:
  XmlParts Read(std::string_view path) {
    const ZipEntry* entry = m_parts.Find(path);
    if (!entry) Refuse("The file lacks a part that every workbook has");
    return XmlParts::Of(entry->data);
  }

  void Put(const std::string& path, std::string text) {
    if (ZipEntry* entry = m_parts.Find(path))
      entry->data = std::move(text);
    else
      m_parts.entries.push_back({path, std::move(text)});
  }

  XmlParts::Child* RelationOf(std::string_view type) {
    for (auto& child : m_relations.children)
      if (Attribute(child.attributes, "Type").value_or("").ends_with("/" + std::string(type))) return &child;
    return nullptr;
  }

  // Adds a part's line to the relations and the content types; answers its id.
  std::string AddPart(const std::string& path, std::string_view type, std::string_view contentType) {
    std::set<std::string> ids;
    for (const auto& child : m_relations.children) ids.insert(Attribute(child.attributes, "Id").value_or(""));
    int number = 1;
    while (ids.contains("rId" + std::to_string(number))) ++number;
    const std::string id = "rId" + std::to_string(number);
    const std::string attributes =
        " Id=\"" + id + "\" Type=\"" + std::string(kRelationTypes) + std::string(type) + "\" Target=\"/" + path + "\"";
    m_relations.children.push_back({"Relationship", m_relations.prefix, attributes,
                                    "<" + m_relations.prefix + "Relationship" + attributes + "/>"});
    m_types.children.push_back({"Override",
                                m_types.prefix,
                                {},
                                "<" + m_types.prefix + "Override PartName=\"/" + path + "\" ContentType=\"" +
                                    std::string(kContentTypes) + std::string(contentType) + "+xml\"/>"});
    return id;
  }

  // The order of calculation is the program's to find again.
  void DropCalculationChain() {
    XmlParts::Child* const relation = RelationOf("calcChain");
    if (!relation) return;
    const std::string path = TargetPath(m_parts.workbookPath, Attribute(relation->attributes, "Target").value_or(""));
    m_relations.children.erase(m_relations.children.begin() + (relation - m_relations.children.data()));
    std::erase_if(m_types.children, [&](const auto& child) {
      return EqualAsciiNoCase(Attribute(child.attributes, "PartName").value_or(""), "/" + path);
    });
    std::erase_if(m_parts.entries, [&](const ZipEntry& entry) { return EqualAsciiNoCase(entry.name, path); });
  }

  std::string StylesPath() {
    if (const auto* relation = RelationOf("styles"))
      return TargetPath(m_parts.workbookPath, Attribute(relation->attributes, "Target").value_or(""));
    AddPart("xl/styles.xml", "styles", "styles");
    return "xl/styles.xml";
  }

  std::string FreeSheetPath() {
    int number = 1;
    const auto path = [&] { return "xl/worksheets/sheet" + std::to_string(number) + ".xml"; };
    while (m_parts.Find(path())) ++number;
    return path();
  }

  void WriteSheets(StyleBook& styles) {
    auto* list = m_book.Find("sheets");
    if (!list) Refuse("The file holds no sheets");
    XmlParts lines = XmlParts::Of(list->whole);
    int lastId = 0;
    for (const auto& line : lines.children) lastId = std::max(lastId, NumberAttribute(line.attributes, "sheetId", 0));
    lines.children.clear();
    for (const auto& sheet : m_document.sheets) {
      const auto held = m_parts.sheets.find(sheet.get());
      const bool known = held != m_parts.sheets.end();
      const std::string attributes =
          known ? WithAttribute(held->second.attributes, "name", sheet->name) : NewSheet(*sheet, ++lastId);
      lines.children.push_back({"sheet", lines.prefix, attributes, "<" + lines.prefix + "sheet" + attributes + "/>"});
      const SheetPart part = known ? held->second : SheetPart{};
      // A sheet of a chart has no part that was read.
      if (known && part.xml.head.empty()) continue;
      Put(known ? part.path : m_newPath, SheetText(m_document, sheet, part, styles));
    }
    list->whole = lines.Text();
  }

  std::string NewSheet(const Sheet& sheet, int id) {
    m_newPath = FreeSheetPath();
    const std::string relation = AddPart(m_newPath, "worksheet", "worksheet");
    return " name=\"" + XmlEscaped(sheet.name) + "\" sheetId=\"" + std::to_string(id) +
           "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" r:id=\"" + relation +
           "\"";
  }

  // Names that are not modelled stay, the others are as they are now.
  void WriteNames() {
    auto* held = m_book.Find("definedNames");
    XmlParts list =
        XmlParts::Of(held ? held->whole : "<" + m_book.prefix + "definedNames></" + m_book.prefix + "definedNames>");
    std::erase_if(list.children, [&](const auto& child) {
      const auto known = m_parts.names.find(Attribute(child.attributes, "name").value_or(""));
      const bool modelled = known != m_parts.names.end() && !Attribute(child.attributes, "localSheetId");
      const std::string* now = modelled ? m_document.FindName(known->first) : nullptr;
      return modelled && !(now && *now == known->second);
    });
    for (const auto& [name, meaning] : m_document.names) {
      const auto known = m_parts.names.find(name);
      if (known != m_parts.names.end() && known->second == meaning) continue;
      const std::string_view text = std::string_view(meaning).substr(meaning.starts_with('=') ? 1 : 0);
      const std::string tag = list.prefix + "definedName";
      list.children.push_back(
          {"definedName",
           list.prefix,
           {},
           "<" + tag + " name=\"" + XmlEscaped(name) + "\">" + XmlEscaped(text) + "</" + tag + ">"});
    }
    if (held)
      held->whole = list.children.empty() ? std::string() : list.Text();
    else if (!list.children.empty())
      InsertAfter({"externalReferences", "functionGroups", "sheets"}, {"definedNames", m_book.prefix, {}, list.Text()});
  }

  // Elements of a workbook have a fixed order: behind the first of these that is there.
  void InsertAfter(std::initializer_list<std::string_view> names, XmlParts::Child child) {
    for (const auto name : names)
      if (const auto* before = m_book.Find(name)) {
        m_book.children.insert(m_book.children.begin() + (before - m_book.children.data()) + 1, std::move(child));
        return;
      }
  }

  void WriteActive() {
    auto* views = m_book.Find("bookViews");
    if (!views) return;
    XmlParts list = XmlParts::Of(views->whole);
    for (auto& view : list.children)
      view.whole =
          WithAttributes(view.whole, WithAttribute(view.attributes, "activeTab", std::to_string(m_document.active)));
    views->whole = list.Text();
  }

  // Results of formulas that the stand-in does not compute may be out of date.
  void AskForCalculation() {
    const char* const name = "fullCalcOnLoad";
    if (auto* held = m_book.Find("calcPr"))
      held->whole = WithAttributes(held->whole, WithAttribute(held->attributes, name, "1"));
    else
      InsertAfter({"definedNames", "externalReferences", "functionGroups", "sheets"},
                  {"calcPr", m_book.prefix, {}, "<" + m_book.prefix + "calcPr " + name + "=\"1\"/>"});
  }

  const Document& m_document;
  Document::FileParts m_parts;
  XmlParts m_types, m_relations, m_book;
  std::string m_newPath;
};

}  // namespace

std::string WriteWorkbook(const Document& document) { return Writer(document).Text(); }

}  // namespace pellora::workbook
