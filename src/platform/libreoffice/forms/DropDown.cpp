#include "platform/libreoffice/forms/DropDown.h"

#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleStateSet.hpp>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/lang/XSingleServiceFactory.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <initializer_list>

namespace pellora::libreoffice {
namespace {

using com::sun::star::accessibility::XAccessible;

/// Calls a method by its name: what these methods take and give as numbers and sets differs between versions of the
/// office program.
uno::Any Ask(const uno::Reference<uno::XComponentContext>& context, const uno::Reference<uno::XInterface>& object,
             const char* method, std::initializer_list<uno::Any> arguments) {
  const uno::Reference<lang::XSingleServiceFactory> maker(
      context->getServiceManager()->createInstanceWithContext("com.sun.star.script.Invocation", context),
      uno::UNO_QUERY_THROW);
  const uno::Any wrapped(object);
  const uno::Reference<com::sun::star::script::XInvocation> called(
      maker->createInstanceWithArguments(uno::Sequence<uno::Any>(&wrapped, 1)), uno::UNO_QUERY_THROW);
  uno::Sequence<sal_Int16> indices;
  uno::Sequence<uno::Any> outputs;
  return called->invoke(rtl::OUString::createFromAscii(method),
                        uno::Sequence<uno::Any>(arguments.begin(), static_cast<sal_Int32>(arguments.size())), indices,
                        outputs);
}

/// A set of states is an object in older versions of the office program, the bits of a number in newer ones.
bool IsShowing(const uno::Any& states) {
  constexpr sal_Int64 kShowingBit = sal_Int64{1} << 24;
  constexpr sal_Int16 kShowing = 25;
  if (sal_Int64 bits = 0; states >>= bits) return (bits & kShowingBit) != 0;
  const uno::Reference<com::sun::star::accessibility::XAccessibleStateSet> set(states, uno::UNO_QUERY);
  return set.is() && set->contains(kShowing);
}

}  // namespace

bool IsDroppedDown(const uno::Reference<uno::XComponentContext>& context, const Window& combo) {
  bool open = false;
  WhileThere([&] {
    const uno::Reference<XAccessible> accessible(combo.Peer(), uno::UNO_QUERY_THROW);
    const auto whole = accessible->getAccessibleContext();
    // The field first, then the list.
    uno::Reference<XAccessible> list(Ask(context, whole, "getAccessibleChild", {uno::Any(sal_Int32(1))}),
                                     uno::UNO_QUERY);
    if (list.is()) open = IsShowing(Ask(context, list->getAccessibleContext(), "getAccessibleStateSet", {}));
  });
  return open;
}

bool IsForDroppedList(const awt::KeyEvent& key) {
  switch (key.KeyCode) {
    case awt::Key::UP:
    case awt::Key::DOWN:
    case awt::Key::RETURN:
    case awt::Key::ESCAPE: return true;
    default: return false;
  }
}

}  // namespace pellora::libreoffice
