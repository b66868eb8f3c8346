#include <algorithm>
#include <filesystem>
#include <fstream>

#include "Desk.h"
#include "core/Text.h"
#include "workbook/FileParts.h"
#include "workbook/Zip.h"

namespace pellora::workbook {
namespace {

constexpr const char* kMain = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
constexpr const char* kRelations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

/// A workbook file made by hand, with what other programs write and this one does not.
std::vector<ZipEntry> ForeignParts() {
  const std::string main = kMain, relations = kRelations;
  const auto relation = [&](const char* id, const char* type, const char* target) {
    return "<Relationship Id='" + std::string(id) + "' Type='" + relations + "/" + type + "' Target='" + target + "'/>";
  };
  return {
      {"[Content_Types].xml",
       "<Types xmlns='t'><Default Extension='xml' ContentType='application/xml'/>"
       "<Override PartName='/xl/calcChain.xml' ContentType='c'/></Types>"},
      {"_rels/.rels", "<Relationships>" + relation("a", "officeDocument", "xl/workbook.xml") + "</Relationships>"},
      {"xl/_rels/workbook.xml.rels", "<Relationships>" + relation("r1", "worksheet", "worksheets/one.xml") +
                                         relation("r2", "worksheet", "/xl/worksheets/two.xml") +
                                         relation("r3", "styles", "styles.xml") +
                                         relation("r4", "sharedStrings", "sharedStrings.xml") +
                                         relation("r5", "calcChain", "calcChain.xml") + "</Relationships>"},
      {"xl/workbook.xml",
       "<workbook " + main + " xmlns:r='" + relations +
           "'><bookViews><workbookView activeTab='1'/></bookViews><sheets><sheet name='TWS_Quotes' sheetId='7' "
           "r:id='r1'/>"
           "<sheet name='My &amp; Sheet' sheetId='9' state='visible' r:id='r2'/></sheets><definedNames>"
           "<definedName name='TWS_Symbol'>TWS_Quotes!$A:$A</definedName>"
           "<definedName name='_xlnm.Print_Area' localSheetId='0'>TWS_Quotes!$A$1:$B$2</definedName></definedNames>"
           "<calcPr calcId='191029'/></workbook>"},
      {"xl/calcChain.xml", "<calcChain/>"},
      {"xl/media/picture.bin", std::string("\0\1\2", 3)},
      {"xl/sharedStrings.xml",
       "<sst " + main +
           "><si><t>Ticker</t></si><si><r><rPr><b/></rPr><t>bo</t></r><r><t xml:space='preserve'>ld </t></r>"
           "<rPh sb='0' eb='1'><t>aid</t></rPh></si><si><t xml:space='preserve'> "
           "</t></si><si><t>a_x000D_b</t></si></sst>"},
      {"xl/styles.xml",
       "<styleSheet " + main +
           "><numFmts count='1'><numFmt numFmtId='170' formatCode='yyyy\\-mm\\-dd'/></numFmts>"
           "<fonts count='1'><font/></fonts><fills count='3'><fill><patternFill patternType='none'/></fill>"
           "<fill><patternFill patternType='gray125'/></fill>"
           "<fill><patternFill patternType='solid'><fgColor rgb='FFC0C0C0'/></patternFill></fill></fills>"
           "<borders count='2'><border><left/><right/><top/><bottom/></border><border>"
           "<left style='dashDotDot'><color indexed='23'/></left><right/><top style='medium'><color "
           "rgb='FFFF0000'/></top>"
           "<bottom/></border></borders><cellXfs count='4'><xf numFmtId='0' fillId='0' borderId='0'/>"
           "<xf numFmtId='170' fillId='0' borderId='0'/><xf numFmtId='2' fontId='0' fillId='2' borderId='1'>"
           "<alignment horizontal='center'/></xf><xf numFmtId='14' fillId='0' borderId='0'/></cellXfs></styleSheet>"},
      {"xl/worksheets/one.xml",
       "<?xml version='1.0'?><!-- kept --><worksheet " + main +
           "><dimension ref='A1:Z99'/><cols><col min='2' max='3' width='10.7109375' hidden='1'/></cols><sheetData>"
           "<row r='1' ht='30' customHeight='1'><c r='A1' t='s'><v>0</v></c><c r='B1' t='s' s='2'><v>1</v></c>"
           "<c r='C1' t='s'><v>2</v></c><c r='D1' t='inlineStr'><is><t>in &lt;line&gt;</t></is></c><c "
           "t='s'><v>3</v></c></row>"
           "<row r='3'><c r='A3'><v>0.1</v></c><c r='B3' s='1'><v>45657.5</v></c><c r='C3' t='b'><v>1</v></c>"
           "<c r='D3' t='e'><v>#DIV/0!</v></c><c r='E3' s='2'/></row>"
           "<row r='4'><c r='A4'><f t='shared' ref='A4:A6' si='0'>B4*$C$1+SUM(Tax!B4:B$9)</f><v>7</v></c>"
           "<c r='B4' t='str'><f>\"x\"&amp;A1</f><v>xTicker</v></c>"
           "<c r='C4'><f t='array' ref='C4:C5'>TRANSPOSE(A1:B1)</f><v>1</v></c></row>"
           "<row r='5'/><row r='6'><c r='A6'><f t='shared' si='0'/><v>9</v></c></row></sheetData>"
           "<mergeCells count='1'><mergeCell ref='G1:H1'/></mergeCells></worksheet>"},
      {"xl/worksheets/two.xml",
       "<x:worksheet xmlns:x='http://schemas.openxmlformats.org/spreadsheetml/2006/main'>"
       "<x:sheetViews><x:sheetView tabSelected='1' workbookViewId='0'/></x:sheetViews>"
       "<x:sheetData><x:row r='2'><x:c r='B2'><x:v>5</x:v></x:c></x:row></x:sheetData>"
       "</x:worksheet>"},
  };
}

class Files : public Desk {
 protected:
  Files() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    m_folder = std::filesystem::temp_directory_path() / ("pellora-workbook-" + std::string(test->name()));
    std::filesystem::create_directories(m_folder);
  }
  ~Files() override { std::filesystem::remove_all(m_folder); }

  std::string Path(const std::string& name) { return (m_folder / name).string(); }
  std::string Write(const std::string& bytes) {
    std::ofstream(Path("in.xlsx"), std::ios::binary) << bytes;
    return Path("in.xlsx");
  }
  void OpenForeign() { host.Open(Write(WriteZip(ForeignParts()))); }
  void SaveAndOpenAgain() {
    host.Save(Path("out.xlsx"));
    host.Open(Path("out.xlsx"));
  }
  std::string SavedPart(std::string_view name) {
    host.Save(Path("out.xlsx"));
    std::ifstream file(Path("out.xlsx"), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    for (const auto& entry : ReadZip(bytes))
      if (entry.name == name) return entry.data;
    return "missing";
  }
  std::int32_t OpenNumber(const std::string& bytes) {
    return NumberOf([&] { host.Open(Write(bytes)); });
  }

 private:
  std::filesystem::path m_folder;
};

TEST_F(Files, TextsOfEveryKindAreRead) {
  OpenForeign();
  EXPECT_EQ(document.Value("TWS_Quotes", "A1"), Variant("Ticker"));
  EXPECT_EQ(document.Value("TWS_Quotes", "B1"), Variant("bold "));
  EXPECT_EQ(document.Value("TWS_Quotes", "C1"), Variant(" "));
  EXPECT_EQ(document.Value("TWS_Quotes", "D1"), Variant("in <line>"));
  EXPECT_EQ(document.Value("TWS_Quotes", "E1"), Variant("a\rb"));
}

TEST_F(Files, ValuesOfEveryKindAreRead) {
  OpenForeign();
  EXPECT_EQ(document.Value("TWS_Quotes", "A3"), Variant(0.1));
  EXPECT_EQ(document.Value("TWS_Quotes", "B3"), Variant::Date(45657.5));
  EXPECT_EQ(document.Value("TWS_Quotes", "C3"), Variant(true));
  EXPECT_EQ(document.Value("TWS_Quotes", "D3"), Variant::CellError(static_cast<std::int32_t>(0x800A07D7)));
  EXPECT_EQ(document.Value("my & sheet", "B2"), Variant(5.0));
}

TEST_F(Files, SharedFormulasAreWrittenOut) {
  OpenForeign();
  EXPECT_EQ(document.Formula("TWS_Quotes", "A6"), "=B6*$C$1+SUM(Tax!B6:B$9)");
  EXPECT_EQ(document.Value("TWS_Quotes", "A6"), Variant(9.0));
  EXPECT_EQ(document.Formula("TWS_Quotes", "B4"), "=\"x\"&A1");
}

TEST_F(Files, LookWidthsNamesAndTheActiveSheetAreRead) {
  OpenForeign();
  const CellFormat look = document.Format("TWS_Quotes", "E3");
  EXPECT_EQ(look.interior, 15);
  EXPECT_EQ(look.borders[2], (BorderLine{5, 2, 16}));
  EXPECT_EQ(look.borders[3], (BorderLine{1, -4138, 3}));
  EXPECT_EQ(document.ColumnWidth("TWS_Quotes", "C"), 10.0);
  EXPECT_EQ(Get(Object(app, "ActiveSheet"), "Name"), Variant("My & Sheet"));
  EXPECT_EQ(Address("tws_symbol"), "$A:$A");
  EXPECT_EQ(document.names.size(), 1u);
}

TEST_F(Files, WhatIsNotModelledIsKept) {
  OpenForeign();
  const std::string sheet = SavedPart("xl/worksheets/one.xml");
  for (const char* kept : {"<mergeCells count='1'><mergeCell ref='G1:H1'/></mergeCells>", "ht='30'", "<!-- kept -->",
                           "hidden='1'", "<f t='array' ref='C4:C5'>TRANSPOSE(A1:B1)</f>", "<v>1</v>"})
    EXPECT_NE(sheet.find(kept), std::string::npos) << kept;
  EXPECT_EQ(SavedPart("xl/media/picture.bin"), std::string("\0\1\2", 3));
  EXPECT_NE(SavedPart("xl/workbook.xml").find("_xlnm.Print_Area"), std::string::npos);
  EXPECT_NE(SavedPart("xl/sharedStrings.xml").find("<rPr><b/></rPr>"), std::string::npos);
  EXPECT_NE(SavedPart("xl/styles.xml").find("<alignment horizontal='center'/>"), std::string::npos);
}

TEST_F(Files, TheOrderOfCalculationIsDropped) {
  OpenForeign();
  EXPECT_EQ(SavedPart("xl/calcChain.xml"), "missing");
  EXPECT_EQ(SavedPart("[Content_Types].xml").find("calcChain"), std::string::npos);
  EXPECT_EQ(SavedPart("xl/_rels/workbook.xml.rels").find("calcChain"), std::string::npos);
  EXPECT_NE(SavedPart("xl/workbook.xml").find("fullCalcOnLoad=\"1\""), std::string::npos);
}

TEST_F(Files, AForeignFileReadsTheSameAfterSaving) {
  OpenForeign();
  const auto cells = document.sheets[0]->cells;
  SaveAndOpenAgain();
  ASSERT_EQ(document.sheets[0]->cells.size(), cells.size());
  for (const auto& [place, cell] : cells) {
    const Cell* again = document.sheets[0]->Find(place);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->value, cell.value) << place.row << "," << place.column;
    EXPECT_EQ(again->formula, cell.formula);
    EXPECT_EQ(again->format, cell.format);
  }
  EXPECT_EQ(document.sheets[0]->columnWidths, (std::map<int, double>{{2, 10.0}, {3, 10.0}}));
}

TEST_F(Files, ChangesToAForeignFileAreSaved) {
  OpenForeign();
  Put(Object(Range("TWS_Quotes!E3:F3"), "Interior"), "ColorIndex", 3);
  Put(Range("TWS_Quotes!A1"), "Value", "Тикер");
  Put(Range("TWS_Quotes!H1"), "ColumnWidth", 20);
  Put(Range("'My & Sheet'!C9"), "Value", "=TWS_Quotes!$A$3");
  Get(app, "AddWorksheet", {"Новый"});
  Put(Range("A1"), "Value", "'<&>\"");
  document.AddName("Tape", "='My & Sheet'!$C$9");
  Get(Sheet("TWS_Quotes"), "Select");
  SaveAndOpenAgain();
  EXPECT_EQ(document.Format("TWS_Quotes", "E3").interior, 3);
  EXPECT_EQ(document.Format("TWS_Quotes", "E3").borders[2].style, 5);
  EXPECT_EQ(document.Format("TWS_Quotes", "F3").interior, 3);
  EXPECT_EQ(document.Value("TWS_Quotes", "A1"), Variant("Тикер"));
  EXPECT_EQ(document.ColumnWidth("TWS_Quotes", "H"), 20);
  EXPECT_EQ(document.ColumnWidth("TWS_Quotes", "B"), 10);
  EXPECT_EQ(document.Formula("My & Sheet", "C9"), "=TWS_Quotes!$A$3");
  EXPECT_EQ(document.Value("Новый", "A1"), Variant("<&>\""));
  EXPECT_EQ(Address("Tape"), "$C$9");
  EXPECT_EQ(document.active, 0u);
}

TEST_F(Files, AWorkbookMadeFromNothingComesBack) {
  const Variant values[] = {"Текст",
                            " x ",
                            "a\tb\nc",
                            "_x0041_",
                            std::string("\x01\xEF\xBF\xBE", 4),
                            0.1 + 0.2,
                            1e-300,
                            -1.5e300,
                            true,
                            Variant::Date(45000.25),
                            "  ",
                            "𝄞",
                            "",
                            Variant::CellError(static_cast<std::int32_t>(0x800A07FA))};
  int row = 1;
  for (const auto& value : values) document.Set("Sheet1", "A" + std::to_string(row++), value);
  for (const int style : {1, -4115, 4, 5, -4118, -4119, 13}) {
    Put(Object(Range("C" + std::to_string(row++)), "Borders", {8}), "LineStyle", style);
  }
  const auto cells = document.sheets[0]->cells;
  SaveAndOpenAgain();
  ASSERT_EQ(document.sheets[0]->cells.size(), cells.size());
  for (const auto& [place, cell] : cells) {
    EXPECT_EQ(document.sheets[0]->Find(place)->value, cell.value) << place.row;
    EXPECT_EQ(document.sheets[0]->Find(place)->format.borders[3].style, cell.format.borders[3].style) << place.row;
  }
}

TEST_F(Files, SavingTwiceGivesTheSameBytes) {
  OpenForeign();
  const std::string first = WriteWorkbook(document);
  EXPECT_EQ(WriteWorkbook(document), first);
}

TEST_F(Files, SavingLeavesNothingBesideTheFile) {
  host.Save(Path("out.xlsx"));
  host.Save(Path("out.xlsx"));
  std::size_t files = 0;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(Path("x")).parent_path()))
    files += file.is_regular_file();
  EXPECT_EQ(files, 1u);
}

TEST_F(Files, APlaceThatCannotBeWrittenIsRefused) {
  EXPECT_EQ(NumberOf([&] { host.Save(Path("no/such/folder/out.xlsx")); }), 1004);
}

TEST_F(Files, BadFilesAreRefusedAndTheOpenWorkbookStays) {
  document.Set("Sheet1", "A1", "stays");
  const std::string good = WriteZip(ForeignParts());
  EXPECT_EQ(NumberOf([&] { host.Open(Path("nosuch.xlsx")); }), 1004);
  EXPECT_EQ(OpenNumber(""), 1004);
  EXPECT_EQ(OpenNumber("no archive at all, only a text"), 1004);
  EXPECT_EQ(OpenNumber(good.substr(0, good.size() / 2)), 1004);
  EXPECT_EQ(OpenNumber(WriteZip({{"readme.txt", "x"}})), 1004);
  EXPECT_EQ(document.Value("Sheet1", "A1"), Variant("stays"));
}

TEST_F(Files, BrokenPartsAreRefused) {
  const std::pair<const char*, const char*> faults[] = {
      {"<row r='3'>", "<row r='3'"},
      {"<row r='3'>", "<row r='0'>"},
      {"r='A3'", "r='A0'"},
      {"r='A3'", "r='XFE3'"},
      {"<v>0.1</v>", "<v>x</v>"},
      {"<v>3</v>", "<v>4</v>"},
      {"<v>3</v>", "<v>-1</v>"},
      {"</sheetData>", "</sheetdata>"},
      {"<sheetData>", "<!DOCTYPE a><sheetData>"},
      {"in &lt;", "in &nosuch;"},
      {"</worksheet>", ""},
      {"<v>0.1</v>", "<v>1e999</v>"},
      {"<!-- kept -->", "<!-- kept "},
      {"s='2'/>", "s='2' s/>"},
  };
  for (const auto& [find, replacement] : faults) {
    auto parts = ForeignParts();
    for (auto& part : parts)
      if (part.name == "xl/worksheets/one.xml") {
        ASSERT_NE(part.data.find(find), std::string::npos) << find;
        part.data = Replace(part.data, find, replacement);
      }
    EXPECT_EQ(OpenNumber(WriteZip(parts)), 1004) << find << " -> " << replacement;
  }
}

TEST_F(Files, DeepNestingIsRefused) {
  auto parts = ForeignParts();
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  parts.back().data = deep;
  EXPECT_EQ(OpenNumber(WriteZip(parts)), 1004);
}

TEST_F(Files, WhatUnpacksWithoutEndIsRefused) {
  auto parts = ForeignParts();
  parts.push_back({"xl/bomb", std::string(std::size_t{60} << 20, '\0')});
  std::string bytes = WriteZip(parts);
  // The same packed bytes named often enough to pass the limit.
  const std::string directoryMark = "PK\x01\x02";
  const std::size_t end = bytes.find("PK\x05\x06");
  const std::size_t last = bytes.rfind(directoryMark, end);
  const std::string line = bytes.substr(last, end - last);
  std::string tail = bytes.substr(end);
  bytes.resize(end);
  for (int i = 0; i < 10; ++i) bytes += line;
  const std::size_t count = parts.size() + 10;
  tail[8] = tail[10] = static_cast<char>(count);
  EXPECT_EQ(OpenNumber(bytes + tail), 1004);
}

TEST_F(Files, DamagedBytesNeverDoMoreThanBeRefused) {
  const std::string good = WriteZip(ForeignParts());
  std::uint32_t random = 1;
  const auto next = [&] { return random = random * 1664525u + 1013904223u, random >> 8; };
  for (int round = 0; round < 400; ++round) {
    std::string bytes = good;
    for (int i = 0; i < 4; ++i) bytes[next() % bytes.size()] = static_cast<char>(next());
    const std::int32_t number = OpenNumber(bytes);
    EXPECT_TRUE(number == 0 || number == 1004) << number;
  }
}

TEST_F(Files, DamagedPartsNeverDoMoreThanBeRefused) {
  const auto good = ForeignParts();
  std::uint32_t random = 7;
  const auto next = [&] { return random = random * 1664525u + 1013904223u, random >> 8; };
  for (int round = 0; round < 1500; ++round) {
    auto parts = good;
    std::string& part = parts[next() % parts.size()].data;
    const char pool[] = "<>/'&;=\"ar19x ";
    for (int i = 0; i < 3 && !part.empty(); ++i) part[next() % part.size()] = pool[next() % (sizeof pool - 1)];
    const std::int32_t number = NumberOf([&] {
      const Document opened = ReadWorkbook(WriteZip(parts));
      WriteWorkbook(opened);
    });
    EXPECT_TRUE(number == 0 || number == 1004) << number;
  }
}

}  // namespace
}  // namespace pellora::workbook
