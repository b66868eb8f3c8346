#pragma once

#include "platform/windows/Windows.h"

namespace pellora::windows {

/// For whom the library is registered. Windows passes over classes of a user in an elevated process.
enum class Audience { Machine, User };

/// Writes the class, its names and the type library into the registry, so that "Pellora.cPellora" can be created.
/// Either all of it is there afterwards or none. Raises `Error`, whose text names the key that could not be written.
void Register(Audience audience);

/// Takes all of it out again, as far as it is there, and leaves what a library of the other bitness needs as well: the
/// names of the class and its part of the type library's entry. Raises `Error` for the first key that could not be
/// removed.
void Unregister(Audience audience);

}  // namespace pellora::windows
