#include "platform/libreoffice/uno/Failure.h"

#include <com/sun/star/beans/UnknownPropertyException.hpp>
#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/lang/IndexOutOfBoundsException.hpp>
#include <com/sun/star/lang/NoSuchMethodException.hpp>
#include <com/sun/star/lang/WrappedTargetException.hpp>
#include <com/sun/star/lang/WrappedTargetRuntimeException.hpp>
#include <com/sun/star/reflection/InvocationTargetException.hpp>
#include <com/sun/star/script/BasicErrorException.hpp>
#include <com/sun/star/script/CannotConvertException.hpp>
#include <cppuhelper/exc_hlp.hxx>

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Any;

constexpr char kSource[] = "LibreOffice";
// What wraps a failure is wrapped again at each reflective call; a ring must not hang us.
constexpr int kMostWraps = 8;

template <class Wrapper>
bool Unwrap(Any& failure) {
  Wrapper wrapper;
  if (!(failure >>= wrapper) || !wrapper.TargetException.hasValue()) return false;
  failure = wrapper.TargetException;
  return true;
}

template <class Exception>
bool Holds(const Any& failure) {
  Exception exception;
  return failure >>= exception;
}

struct Rule {
  bool (*holds)(const Any&);
  std::int32_t number;
};

constexpr Rule kRules[] = {
    {Holds<css::lang::DisposedException>, kDisconnected},
    {Holds<css::lang::IllegalArgumentException>, errors::TypeMismatch},
    {Holds<css::script::CannotConvertException>, errors::TypeMismatch},
    {Holds<css::lang::NoSuchMethodException>, errors::MemberNotSupported},
    {Holds<css::beans::UnknownPropertyException>, errors::MemberNotSupported},
    {Holds<css::container::NoSuchElementException>, errors::SubscriptOutOfRange},
    {Holds<css::lang::IndexOutOfBoundsException>, errors::SubscriptOutOfRange},
};

// The codes of the program's macro language that its spreadsheet objects raise: the number within their area.
std::int32_t NumberOfBasicError(std::int32_t code) {
  if (code > 0 && code <= 0xFFFF && StandardDescription(code) != StandardDescription(errors::ApplicationDefined))
    return code;
  return errors::ApplicationDefined;
}

// The program ends its messages with places in its own source, which say nothing to anyone here.
std::string WithoutPlaces(std::string text) {
  const std::size_t place = text.find("at ./");
  if (place != std::string::npos) text.resize(place);
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

Error Make(std::int32_t number, const std::string& message) {
  const std::string text = WithoutPlaces(message);
  return Error(number, kSource, text.empty() ? std::string(StandardDescription(number)) : text);
}

Error FromFailure(Any failure) {
  for (int wraps = 0; wraps < kMostWraps; ++wraps)
    if (!Unwrap<css::reflection::InvocationTargetException>(failure) &&
        !Unwrap<css::lang::WrappedTargetException>(failure) &&
        !Unwrap<css::lang::WrappedTargetRuntimeException>(failure))
      break;
  css::script::BasicErrorException basic;
  if (failure >>= basic) {
    const std::string text = Narrow(basic.ErrorMessageArgument);
    return Make(NumberOfBasicError(basic.ErrorCode), text.empty() ? Narrow(basic.Message) : text);
  }
  css::uno::Exception exception;
  failure >>= exception;
  for (const Rule& rule : kRules)
    if (rule.holds(failure)) return Make(rule.number, Narrow(exception.Message));
  return Make(errors::ApplicationDefined, Narrow(exception.Message));
}

}  // namespace

void Refuse(const std::string& text) { throw Make(errors::ApplicationDefined, text); }
void RaiseDisconnected() { throw Make(kDisconnected, "The workbook of this object was closed (0x80010108)"); }

Error CaughtFailure() {
  try {
    throw;
  } catch (const css::uno::Exception&) {
    return FromFailure(cppu::getCaughtException());
  } catch (...) {
    return CaughtError(kSource);
  }
}

}  // namespace pellora::libreoffice
