#pragma once

#include <com/sun/star/reflection/XIdlField2.hpp>
#include <com/sun/star/reflection/XIdlMethod.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/Dispatch.h"

namespace pellora::libreoffice {

/// A method that the program's own reflection describes, with the types of its parameters.
struct Method {
  com::sun::star::uno::Reference<com::sun::star::reflection::XIdlMethod> method;
  std::vector<com::sun::star::uno::TypeClass> parameters;
};

/// What one name stands for in an object: a method, or a property by way of an attribute or of a pair of methods. Where
/// a name is both, a call and a read use the method, as macros do.
struct Member {
  Method method;
  com::sun::star::uno::Reference<com::sun::star::reflection::XIdlField2> attribute;
  com::sun::star::uno::TypeClass attributeType = com::sun::star::uno::TypeClass_VOID;
  Method getter;
  Method setter;
};

/// The kinds of objects for which the table of differences has rows.
enum class ObjectKind { Other, Application, Workbook, Worksheets, Worksheet, Range, Borders, Border, Interior };

/// The members of all objects of one implementation, by names in lower case. Made once for each implementation, when
/// its first object is used; a call then looks a name up in a map.
class ObjectType {
 public:
  /// The type of an object. Lives as long as the program.
  static const ObjectType& Of(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& object,
                              const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context);

  ObjectKind Kind() const { return m_kind; }
  /// Null for a name that the objects do not know.
  const Member* Find(std::string_view lowerName) const;

 private:
  friend class TypeReader;
  std::map<std::string, Member, std::less<>> m_members;
  ObjectKind m_kind = ObjectKind::Other;
};

/// How many implementations were read in this process, for tests and measurements.
std::size_t ReadTypes();

}  // namespace pellora::libreoffice
