#include "core/Text.h"
#include "platform/headless/Headless.h"

namespace pellora::headless {
namespace {

std::string Call(std::string_view verb, std::string_view file, std::string_view parameters,
                 std::string_view directory) {
  return Join({std::string(verb), std::string(file), std::string(parameters), std::string(directory)}, "|");
}

}  // namespace

std::int32_t RecordingShell::Execute(std::string_view verb, std::string_view file, std::string_view parameters,
                                     std::string_view directory) {
  calls.push_back(Call(verb, file, parameters, directory));
  return result;
}

bool RecordingShell::RunAndWait(std::string_view program, std::string_view parameters, std::string_view directory) {
  calls.push_back(Call("run", program, parameters, directory));
  return canRun;
}

bool RecordingShell::FileExists(std::string_view) { return filesExist; }

std::vector<std::string> RecordingShell::DocumentVerbs(std::string_view) { return verbs; }

std::int32_t RecordingShell::ShowProperties(std::string_view path, std::intptr_t) {
  calls.push_back(Call("properties", path, "", ""));
  return result;
}

bool MemoryEventLog::WriteError(std::string_view source, std::string_view text) {
  if (refuses) return false;
  entries.push_back(std::string(source) + "|" + std::string(text));
  return true;
}

bool MemoryLogFiles::Append(std::string_view path, std::string_view bytes) {
  if (refuses) return false;
  files[std::string(path)] += bytes;
  return true;
}

bool MemoryLogFiles::Delete(std::string_view path) { return !refuses && files.erase(std::string(path)) > 0; }

}  // namespace pellora::headless
