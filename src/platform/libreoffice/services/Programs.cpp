#include "platform/libreoffice/services/Programs.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "platform/libreoffice/services/Descriptor.h"

namespace pellora::libreoffice {
namespace {

constexpr std::string_view kBetweenWords = " \t\r\n";

class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&m_actions); }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&m_actions); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;

  int ChangeDirectory(const std::string& directory) {
    return posix_spawn_file_actions_addchdir_np(&m_actions, directory.c_str());
  }
  const posix_spawn_file_actions_t* get() const { return &m_actions; }

 private:
  posix_spawn_file_actions_t m_actions;
};

/// What a host ignores or holds back would stay ignored and held back in the program.
class SpawnSignals {
 public:
  SpawnSignals() {
    posix_spawnattr_init(&m_attributes);
    sigset_t none, usual;
    sigemptyset(&none);
    sigemptyset(&usual);
    for (const int signal : {SIGPIPE, SIGCHLD, SIGINT, SIGQUIT}) sigaddset(&usual, signal);
    posix_spawnattr_setsigmask(&m_attributes, &none);
    posix_spawnattr_setsigdefault(&m_attributes, &usual);
    posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnSignals() { posix_spawnattr_destroy(&m_attributes); }
  SpawnSignals(const SpawnSignals&) = delete;
  SpawnSignals& operator=(const SpawnSignals&) = delete;

  const posix_spawnattr_t* get() const { return &m_attributes; }

 private:
  posix_spawnattr_t m_attributes;
};

std::vector<char*> Pointers(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (auto& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

std::vector<std::string> CommandWords(std::string_view parameters) {
  std::vector<std::string> words;
  bool inWord = false, inQuotes = false;
  const auto word = [&]() -> std::string& {
    if (!std::exchange(inWord, true)) words.emplace_back();
    return words.back();
  };
  for (std::size_t i = 0; i < parameters.size();) {
    const auto next = std::min(parameters.find_first_not_of('\\', i), parameters.size());
    if (const auto slashes = next - i; slashes > 0) {
      const bool beforeQuote = next < parameters.size() && parameters[next] == '"';
      const bool quoteIsMeant = beforeQuote && slashes % 2 == 1;
      word().append(beforeQuote ? slashes / 2 : slashes, '\\').append(quoteIsMeant ? "\"" : "");
      i = next + (quoteIsMeant ? 1 : 0);
      continue;
    }
    const char c = parameters[i++];
    if (c == '"') {
      word();
      inQuotes = !inQuotes;
    } else if (!inQuotes && kBetweenWords.find(c) != std::string_view::npos) {
      inWord = false;
    } else {
      word() += c;
    }
  }
  return words;
}

int StartProgram(std::string_view program, const std::vector<std::string>& words, std::string_view directory,
                 pid_t& started) {
  const std::string path = SystemPath(program);
  if (path.empty()) return ENOENT;
  const auto cannotBePassed = [](const std::string& word) { return word.find('\0') != std::string::npos; };
  if (std::any_of(words.begin(), words.end(), cannotBePassed)) return EINVAL;
  std::error_code error;
  const std::string absolute = std::filesystem::absolute(path, error).string();
  if (error) return error.value();
  SpawnActions actions;
  if (!directory.empty())
    if (const int status = actions.ChangeDirectory(SystemPath(directory))) return status;
  const SpawnSignals signals;
  std::vector<std::string> arguments{path};
  arguments.insert(arguments.end(), words.begin(), words.end());
  return posix_spawn(&started, absolute.c_str(), actions.get(), signals.get(), Pointers(arguments).data(), environ);
}

void WaitForEnd(pid_t program) {
  // A host that does not want to hear of its children makes the system wait here all the same, and then fail.
  Uninterrupted([program] { return waitpid(program, nullptr, 0); });
}

bool HasEnded(pid_t program) {
  return Uninterrupted([program] { return waitpid(program, nullptr, WNOHANG); }) != 0;
}

}  // namespace pellora::libreoffice
