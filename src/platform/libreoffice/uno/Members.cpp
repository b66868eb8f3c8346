#include "platform/libreoffice/uno/Members.h"

#include <algorithm>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/lang/XTypeProvider.hpp>
#include <com/sun/star/reflection/FieldAccessMode.hpp>
#include <com/sun/star/reflection/XIdlClass.hpp>
#include <com/sun/star/reflection/theCoreReflection.hpp>
#include <memory>

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::XInterface;
using Context = Reference<css::uno::XComponentContext>;

namespace {

// Interfaces that are machinery, none of a macro's business.
constexpr std::string_view kMachinery[] = {
    "com.sun.star.uno.XInterface",        "com.sun.star.uno.XWeak",          "com.sun.star.lang.XTypeProvider",
    "com.sun.star.lang.XUnoTunnel",       "com.sun.star.script.XInvocation", "com.sun.star.beans.XExactName",
    "com.sun.star.lang.XServiceInfo",     "com.sun.star.script.XErrorQuery", "com.sun.star.script.XDefaultProperty",
    "com.sun.star.script.XDefaultMethod",
};

struct KindOfInterface {
  std::string_view interface;
  ObjectKind kind;
};

constexpr KindOfInterface kKinds[] = {
    {"ooo.vba.excel.XApplication", ObjectKind::Application},
    {"ooo.vba.excel.XWorkbook", ObjectKind::Workbook},
    {"ooo.vba.excel.XWorksheets", ObjectKind::Worksheets},
    {"ooo.vba.excel.XWorksheet", ObjectKind::Worksheet},
    {"ooo.vba.excel.XRange", ObjectKind::Range},
    {"ooo.vba.excel.XBorders", ObjectKind::Borders},
    {"ooo.vba.excel.XBorder", ObjectKind::Border},
    {"ooo.vba.excel.XInterior", ObjectKind::Interior},
};

bool IsMachinery(std::string_view interface) {
  for (const auto name : kMachinery)
    if (name == interface) return true;
  return false;
}

Method Describe(const Reference<css::reflection::XIdlMethod>& method) {
  Method described{method, {}};
  const auto types = method->getParameterTypes();
  for (sal_Int32 i = 0; i < types.getLength(); ++i) described.parameters.push_back(types[i]->getTypeClass());
  return described;
}

// Objects tell what they are by the name of their implementation and their interfaces; objects of equal ones share
// their members.
std::string KeyOf(const Reference<XInterface>& object, const Sequence<css::uno::Type>& types) {
  std::string key;
  const Reference<css::lang::XServiceInfo> service(object, css::uno::UNO_QUERY);
  if (service.is()) key = Narrow(service->getImplementationName());
  for (sal_Int32 i = 0; i < types.getLength(); ++i) {
    // The descriptions of types are kept for good, so their addresses tell them apart.
    const auto* type = types[i].getTypeLibType();
    key.append(reinterpret_cast<const char*>(&type), sizeof type);
  }
  return key;
}

std::map<std::string, std::unique_ptr<ObjectType>>& Known() {
  static std::map<std::string, std::unique_ptr<ObjectType>> known;
  return known;
}

}  // namespace

// Reads the members of an implementation out of the descriptions of its interfaces.
class TypeReader {
 public:
  explicit TypeReader(const Context& context) : m_reflection(css::reflection::theCoreReflection::get(context)) {}

  std::unique_ptr<ObjectType> Read(const Sequence<css::uno::Type>& types) {
    auto result = std::make_unique<ObjectType>();
    m_type = result.get();
    for (sal_Int32 i = 0; i < types.getLength(); ++i) ReadInterface(Narrow(types[i].getTypeName()));
    return result;
  }

 private:
  void ReadInterface(const std::string& name) {
    for (const auto& entry : kKinds)
      if (entry.interface == name && m_type->m_kind == ObjectKind::Other) m_type->m_kind = entry.kind;
    if (IsMachinery(name)) return;
    const auto description = m_reflection->forName(Wide(name));
    if (!description.is()) return;
    const auto fields = description->getFields();
    for (sal_Int32 i = 0; i < fields.getLength(); ++i) ReadAttribute(fields[i]);
    const auto methods = description->getMethods();
    for (sal_Int32 i = 0; i < methods.getLength(); ++i)
      if (!IsMachinery(Narrow(methods[i]->getDeclaringClass()->getName()))) ReadMethod(methods[i]);
  }

  void ReadAttribute(const Reference<css::reflection::XIdlField>& field) {
    Member& member = m_type->m_members[LowerName(Narrow(field->getName()))];
    member.attribute.set(field, css::uno::UNO_QUERY);
    if (member.attribute.is()) member.attributeType = member.attribute->getType()->getTypeClass();
  }

  void ReadMethod(const Reference<css::reflection::XIdlMethod>& method) {
    const std::string name = LowerName(Narrow(method->getName()));
    const Method described = Describe(method);
    m_type->m_members[name].method = described;
    const std::string property = name.substr(std::min<std::size_t>(3, name.size()));
    if (property.empty()) return;
    if (name.starts_with("get") && described.parameters.empty()) m_type->m_members[property].getter = described;
    if (name.starts_with("set") && described.parameters.size() == 1) m_type->m_members[property].setter = described;
  }

  Reference<css::reflection::XIdlReflection> m_reflection;
  ObjectType* m_type = nullptr;
};

const ObjectType& ObjectType::Of(const Reference<XInterface>& object, const Context& context) {
  const Reference<css::lang::XTypeProvider> provider(object, css::uno::UNO_QUERY);
  const auto types = provider.is() ? provider->getTypes() : Sequence<css::uno::Type>();
  auto& entry = Known()[KeyOf(object, types)];
  if (!entry) entry = TypeReader(context).Read(types);
  return *entry;
}

const Member* ObjectType::Find(std::string_view lowerName) const {
  const auto found = m_members.find(lowerName);
  return found == m_members.end() ? nullptr : &found->second;
}

std::size_t ReadTypes() { return Known().size(); }

}  // namespace pellora::libreoffice
