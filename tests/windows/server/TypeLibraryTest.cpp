#include <ostream>

#include "LoadedServer.h"

namespace pellora::windows::test {
namespace {

using ole::BStr;

constexpr INVOKEKIND kGet = INVOKE_PROPERTYGET, kPut = INVOKE_PROPERTYPUT, kPutRef = INVOKE_PROPERTYPUTREF,
                     kMethod = INVOKE_FUNC;

// A member as a macro's author sees it: arguments as "[in,out] short* Name", the answer last.
struct Row {
  std::string name;
  MEMBERID id;
  INVOKEKIND kind;
  std::string answer;
  std::vector<std::string> arguments;
  std::string help;
  bool operator==(const Row&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  out << row.id << " " << row.kind << " " << row.answer << " " << row.name << "(";
  for (const auto& argument : row.arguments) out << argument << "; ";
  return out << ") \"" << row.help << "\"";
}

const std::string kApplicationHelp = "The spreadsheet application that the dialogs work on";
const std::string kAddressHelp = "The tape location in the ticker tape dialog";
const std::string kVariantHelp = "The spreadsheet application, as a variant";

// The contract with every workbook in use, in the order of the slots.
const Row kMembers[] = {
    {"m_ObjExcelApplication", 1, kGet, "object", {}, kApplicationHelp},
    {"m_ObjExcelApplication", 1, kPutRef, "", {"[in] object"}, kApplicationHelp},
    {"m_ObjExcelApplication", 1, kPut, "", {"[in] object"}, kApplicationHelp},
    {"RefEditInputs", 2, kGet, "text", {}, kAddressHelp},
    {"RefEditInputs", 2, kPut, "", {"[in] text"}, kAddressHelp},
    {"ExcelApplication", 3, kGet, "variant", {}, kVariantHelp},
    {"ExcelApplication", 3, kPut, "", {"[in] variant"}, kVariantHelp},
    {"ExcelApplication", 3, kPutRef, "", {"[in] variant"}, kVariantHelp},
    {"CreateNewProject",
     4,
     kMethod,
     "boolean",
     {"[in,out] short* AskPrice", "[in,out] short* AskSize", "[in,out] short* BidPrice", "[in,out] short* BidSize",
      "[in,out] short* ClosePrice", "[in,out] short* HighTick", "[in,out] short* LastPrice", "[in,out] short* LastSize",
      "[in,out] short* LowTick", "[in,out] short* Volume"},
     "Lets the user choose the quote fields of a new project; False when cancelled"},
    {"AddNewSymbol",
     5,
     kMethod,
     "short",
     {"[in,out] text* Symbol", "[in,out] text* TypeSymbol", "[in,out] text* Expiry", "[in,out] double* Strike",
      "[in,out] text* Right", "[in,out] double* Multiplier", "[in,out] text* Exchange",
      "[in,out] text* PrimaryExchange", "[in,out] text* TypeCurrency", "[in,out] short* ComTypeListIndex"},
     "Lets the user describe an instrument: 1 insert, 4 insert and ask again, 2 cancelled"},
    {"ShowRefEditInterface",
     6,
     kMethod,
     "text",
     {},
     "Shows the ticker tape dialog: CLOSE when finished, DATABEGINNING when a range is wanted"},
    {"UnloadfrmMaster", 7, kMethod, "", {}, "Releases the ticker tape dialog"},
};

std::string TypeName(const TYPEDESC& type) {
  switch (type.vt) {
    case VT_I2: return "short";
    case VT_R8: return "double";
    case VT_BSTR: return "text";
    case VT_BOOL: return "boolean";
    case VT_VARIANT: return "variant";
    case VT_DISPATCH: return "object";
    case VT_VOID:
    case VT_HRESULT: return "";
    case VT_PTR: return type.lptdesc->vt == VT_USERDEFINED ? "object" : TypeName(*type.lptdesc) + "*";
    default: return "type " + std::to_string(type.vt);
  }
}

std::string Direction(USHORT flags) {
  const bool in = flags & PARAMFLAG_FIN, out = flags & PARAMFLAG_FOUT;
  return in && out ? "[in,out] " : in ? "[in] " : "[out] ";
}

Row RowOf(ITypeInfo* type, const FUNCDESC& function) {
  Row row;
  row.id = function.memid;
  row.kind = function.invkind;
  row.answer = TypeName(function.elemdescFunc.tdesc);
  BSTR names[16] = {};
  UINT count = 0;
  type->GetNames(function.memid, names, 16, &count);
  const bool named = function.invkind == INVOKE_FUNC;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    // The value of a put has no name of its own in the list of names.
    const std::string name = named && names[i + 1] ? " " + ole::Narrow(names[i + 1]) : "";
    row.arguments.push_back(Direction(parameter.paramdesc.wParamFlags) + TypeName(parameter.tdesc) + name);
  }
  for (BSTR text : names) SysFreeString(text);
  BStr name, help;
  type->GetDocumentation(function.memid, name.put(), help.put(), nullptr, nullptr);
  row.name = name.Text();
  row.help = help.Text();
  return row;
}

class TypeLibrary : public LoadedServer {
 protected:
  void SetUp() override {
    LoadedServer::SetUp();
    ASSERT_EQ(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, library.put()), S_OK);
  }
  ComPtr<ITypeInfo> Type(REFGUID id) {
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, type.put()), S_OK);
    return type;
  }
  ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, CarriesItsNameAndHelpString) {
  BStr name, help;
  library->GetDocumentation(-1, name.put(), help.put(), nullptr, nullptr);
  EXPECT_EQ(name.Text(), "Pellora");
  EXPECT_EQ(help.Text(), "Vantix user interface library");
}

TEST_F(TypeLibrary, IsVersionOne) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
}

TEST_F(TypeLibrary, OffersEveryMemberAsItAlwaysWas) {
  const auto type = Type(__uuidof(_cPellora));
  std::vector<Row> rows;
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(type->GetFuncDesc(index, &function)); ++index) {
    // Those of IDispatch itself may be listed before.
    if (function->memid < 0x60000000) rows.push_back(RowOf(type.get(), *function));
    type->ReleaseFuncDesc(function);
  }
  EXPECT_EQ(rows, std::vector<Row>(std::begin(kMembers), std::end(kMembers)));
}

TEST_F(TypeLibrary, TheSlotsFollowThoseOfLateBindingInOrder) {
  const auto type = Type(__uuidof(_cPellora));
  FUNCDESC* function = nullptr;
  SHORT expected = 7;
  for (UINT index = 0; SUCCEEDED(type->GetFuncDesc(index, &function)); ++index) {
    if (function->memid < 0x60000000) {
      EXPECT_EQ(function->oVft, expected++ * static_cast<SHORT>(sizeof(void*)));
    }
    type->ReleaseFuncDesc(function);
  }
  EXPECT_EQ(expected, 7 + 12);
}

TEST_F(TypeLibrary, TheClassCanBeCreatedAndHasOneInterface) {
  const auto type = Type(__uuidof(::cPellora));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
  EXPECT_EQ(attributes->cImplTypes, 1);
  type->ReleaseTypeAttr(attributes);
}

TEST_F(TypeLibrary, IsWhatAnObjectTellsOfItself) {
  const auto object = Make();
  UINT count = 0;
  EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ComPtr<ITypeInfo> type;
  ASSERT_EQ(object->GetTypeInfo(0, 0x409, type.put()), S_OK);
  BStr name;
  type->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
  EXPECT_EQ(name.Text(), "_cPellora");
}

}  // namespace
}  // namespace pellora::windows::test
