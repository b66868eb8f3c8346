#include "core/Error.h"

#include <array>
#include <new>
#include <utility>

namespace pellora {
namespace {

struct Description {
  std::int32_t number;
  std::string_view text;
};

constexpr std::array kDescriptions = {
    Description{5, "Invalid procedure call or argument"},
    Description{6, "Overflow"},
    Description{7, "Out of memory"},
    Description{9, "Subscript out of range"},
    Description{11, "Division by zero"},
    Description{13, "Type mismatch"},
    Description{51, "Internal error"},
    Description{52, "Bad file name or number"},
    Description{53, "File not found"},
    Description{61, "Disk full"},
    Description{70, "Permission denied"},
    Description{75, "Path/File access error"},
    Description{76, "Path not found"},
    Description{91, "Object variable or With block variable not set"},
    Description{94, "Invalid use of Null"},
    Description{380, "Invalid property value"},
    Description{381, "Invalid property array index"},
    Description{383, "Property is read-only"},
    Description{400, "Form already displayed; can't show modally"},
    Description{424, "Object required"},
    Description{429, "ActiveX component can't create object"},
    Description{430, "Class does not support Automation or does not support expected interface"},
    Description{432, "File name or class name not found during Automation operation"},
    Description{438, "Object doesn't support this property or method"},
    Description{445, "Object doesn't support this action"},
    Description{446, "Object doesn't support named arguments"},
    Description{447, "Object doesn't support current locale setting"},
    Description{448, "Named argument not found"},
    Description{449, "Argument not optional"},
    Description{450, "Wrong number of arguments or invalid property assignment"},
    Description{457, "This key is already associated with an element of this collection"},
    Description{458, "Variable uses an Automation type not supported"},
};

struct CodePair {
  std::uint32_t code;
  std::int32_t number;
};

// Standard automation codes and the classic numbers that macro languages show for them.
constexpr std::array kCodes = {
    CodePair{0x80004001u, 445}, CodePair{0x80004002u, 430}, CodePair{0x80020001u, 438}, CodePair{0x80020003u, 438},
    CodePair{0x80020004u, 448}, CodePair{0x80020005u, 13},  CodePair{0x80020006u, 438}, CodePair{0x80020007u, 446},
    CodePair{0x80020008u, 458}, CodePair{0x8002000Au, 6},   CodePair{0x8002000Bu, 9},   CodePair{0x8002000Cu, 447},
    CodePair{0x8002000Eu, 450}, CodePair{0x8002000Fu, 449}, CodePair{0x80020012u, 11},  CodePair{0x8007000Eu, 7},
    CodePair{0x80070057u, 5},   CodePair{0x80070005u, 70},  CodePair{0x80040154u, 429}, CodePair{0x800401F3u, 429},
    CodePair{0x800401E4u, 432},
};

}  // namespace

Error::Error(std::int32_t number, std::string source, std::string description)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description)) {}

Error::Error(std::int32_t number) : Error(number, {}, std::string(StandardDescription(number))) {}

Error CaughtError(std::string_view source) {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(errors::OutOfMemory);
  } catch (const std::exception& other) {
    return Error(errors::InternalError, std::string(source), other.what());
  } catch (...) {
    return Error(errors::InternalError);
  }
}

std::string_view StandardDescription(std::int32_t number) {
  for (const auto& entry : kDescriptions)
    if (entry.number == number) return entry.text;
  return "Application-defined or object-defined error";
}

std::int32_t NumberFromCode(std::int32_t code) {
  if (IsBusy(code)) return code;
  const auto bits = static_cast<std::uint32_t>(code);
  for (const auto& pair : kCodes)
    if (pair.code == bits) return pair.number;
  return (bits & 0xFFFF0000u) == 0x800A0000u ? static_cast<std::int32_t>(bits & 0xFFFFu) : code;
}

std::int32_t CodeFromNumber(std::int32_t number) {
  if (number < 0) return number;
  return static_cast<std::int32_t>(0x800A0000u | (static_cast<std::uint32_t>(number) & 0xFFFFu));
}

bool IsBusy(std::int32_t number) {
  return number == errors::CallRejected || number == errors::RetryLater || number == errors::Suspended;
}

}  // namespace pellora
