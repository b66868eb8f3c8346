#include "platform/libreoffice/component/BasicErrors.h"

#include <algorithm>
#include <com/sun/star/lang/WrappedTargetException.hpp>
#include <iterator>
#include <new>
#include <string>

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;
using com::sun::star::lang::WrappedTargetException;
using com::sun::star::reflection::InvocationTargetException;
using com::sun::star::script::BasicErrorException;

constexpr std::int32_t kInvalidUseOfNull = 94;
constexpr std::int32_t kAutomationError = 440;

// Of the numbers that the library raises, those that Basic knows.
constexpr std::int32_t kBasicNumbers[] = {
    errors::InvalidCall,         errors::Overflow,           errors::OutOfMemory,        errors::SubscriptOutOfRange,
    errors::TypeMismatch,        errors::InternalError,      errors::ObjectNotSet,       kInvalidUseOfNull,
    errors::ObjectRequired,      errors::MemberNotSupported, kAutomationError,           errors::NamedArgumentNotFound,
    errors::ArgumentNotOptional, errors::WrongArgumentCount, errors::ApplicationDefined,
};

std::string PlainText(const Error& error) {
  return error.Source().empty() ? error.Description() : error.Source() + ": " + error.Description();
}

}  // namespace

Error Caught() noexcept try {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(errors::OutOfMemory);
  } catch (const std::exception& other) {
    return Error(errors::InternalError, {}, other.what());
  } catch (const uno::Exception& other) {
    return Error(errors::InternalError, {}, Narrow(other.Message));
  } catch (...) {
    return Error(errors::InternalError);
  }
} catch (...) {
  return Error(errors::OutOfMemory, {}, {});
}

std::int32_t BasicNumber(std::int32_t number) {
  const bool known = std::find(std::begin(kBasicNumbers), std::end(kBasicNumbers), number) != std::end(kBasicNumbers);
  return known ? number : kAutomationError;
}

std::string BasicText(const Error& error) { return PlainText(error) + " (" + std::to_string(error.Number()) + ")"; }

BasicErrorException ForBasic(const Error& error, const uno::Reference<uno::XInterface>& source) {
  const rtl::OUString text = Wide(BasicText(error));
  return BasicErrorException(text, source, BasicNumber(error.Number()), text);
}

InvocationTargetException WrappedForBasic(const Error& error, const uno::Reference<uno::XInterface>& source) {
  const BasicErrorException inner = ForBasic(error, source);
  const WrappedTargetException wrapped(inner.Message, source, uno::Any(inner));
  return InvocationTargetException(inner.Message, source, uno::Any(wrapped));
}

BasicErrorException ForCallers(const Error& error, const uno::Reference<uno::XInterface>& source) {
  return BasicErrorException(Wide(PlainText(error)), source, error.Number(), Wide(error.Description()));
}

}  // namespace pellora::libreoffice
