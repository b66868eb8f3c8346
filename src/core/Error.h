#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace pellora {

/// The one exception of the library: what went wrong, where, in words.
///
/// `Number()` follows the convention of the host's macro language: the classic run-time numbers (13 = type
/// mismatch, 1004 = refused by the spreadsheet) are small and positive; numbers that a component defines itself
/// are negative, 0x80040000 plus an offset. Platform result codes are converted once, where the call is made.
class Error : public std::exception {
 public:
  Error(std::int32_t number, std::string source, std::string description);

  /// A run-time failure with its standard description (`StandardDescription`) and no source.
  explicit Error(std::int32_t number);

  std::int32_t Number() const noexcept { return m_number; }
  const std::string& Source() const noexcept { return m_source; }
  const std::string& Description() const noexcept { return m_description; }
  const char* what() const noexcept override { return m_description.c_str(); }

 private:
  std::int32_t m_number;
  std::string m_source;
  std::string m_description;
};

/// The failure that is being handled, as the library's own: an `Error` as it is, memory that ran out as 7, any other
/// standard exception as 51 with its text and with `source`, everything else as 51. Only within a catch block.
Error CaughtError(std::string_view source = {});

/// Run-time error numbers of the host's macro language that the library raises or recognises.
namespace errors {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t InternalError = 51;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t ObjectRequired = 424;
inline constexpr std::int32_t MemberNotSupported = 438;
inline constexpr std::int32_t NamedArgumentNotFound = 448;
inline constexpr std::int32_t ArgumentNotOptional = 449;
inline constexpr std::int32_t WrongArgumentCount = 450;
inline constexpr std::int32_t ApplicationDefined = 1004;

/// Result codes with which a busy host turns a call away (automation's call rejected and retry later, and the
/// spreadsheet's own suspended state, for instance while a cell is being edited).
inline constexpr std::int32_t CallRejected = static_cast<std::int32_t>(0x80010001);
inline constexpr std::int32_t RetryLater = static_cast<std::int32_t>(0x8001010A);
inline constexpr std::int32_t Suspended = static_cast<std::int32_t>(0x800AC472);

/// A number the library defines itself: 0x80040000 plus `offset`.
constexpr std::int32_t Component(std::uint32_t offset) { return static_cast<std::int32_t>(0x80040000u + offset); }
}  // namespace errors

/// The text the host's macro language shows for a run-time error number; "Application-defined or object-defined
/// error" for a number without one of its own.
std::string_view StandardDescription(std::int32_t number);

/// The error number for an automation result code: standard codes become the classic numbers, codes of the form
/// 0x800Axxxx their low 16 bits (0x800A03EC: 1004), any other code is its own number. The busy codes stay whole,
/// so that a caller can tell them.
std::int32_t NumberFromCode(std::int32_t code);

/// The automation result code for an error number: small numbers become 0x800A0000 plus the number, negative ones
/// are codes already. The inverse of `NumberFromCode` up to synonyms.
std::int32_t CodeFromNumber(std::int32_t number);

/// True when a call that failed with this number was turned away because the host is busy.
bool IsBusy(std::int32_t number);

}  // namespace pellora
