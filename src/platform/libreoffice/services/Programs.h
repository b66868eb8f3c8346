#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace pellora::libreoffice {

/// A command line's words: apart by blanks, where blanks between double quotes belong to the word. A backslash
/// before a quote makes it a character of the word, and pairs of backslashes before a quote count once; everywhere
/// else a backslash is itself. Nothing is replaced or looked up: no shell ever sees the words.
std::vector<std::string> CommandWords(std::string_view parameters);

/// Starts a program in a directory ("" for the current one; a relative path of the program is one in the current
/// directory all the same). Signals are as a new program expects them. `started` is written on success; otherwise the
/// answer is the system's error number.
int StartProgram(std::string_view program, const std::vector<std::string>& words, std::string_view directory,
                 pid_t& started);

/// Waits for a started program to end, whatever signals come meanwhile.
void WaitForEnd(pid_t program);

/// True when it has ended, without waiting. Asked once after that, no more.
bool HasEnded(pid_t program);

}  // namespace pellora::libreoffice
