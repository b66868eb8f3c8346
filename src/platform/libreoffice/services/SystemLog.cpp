#include "platform/libreoffice/services/SystemLog.h"

#include <syslog.h>

#include <utility>

#include "core/Text.h"

namespace pellora::libreoffice {
namespace {

// The text is never the format.
void WriteToSystem(int priority, const std::string& text) { syslog(priority, "%s", text.c_str()); }

/// A zero would end the entry, a carriage return shows as a code.
std::string Plain(std::string_view text) {
  return Replace(Replace(text, "\r\n", "\n"), std::string_view("\0", 1), "?");
}

}  // namespace

SystemLog::SystemLog(Writer write) : m_write(write ? std::move(write) : Writer(WriteToSystem)) {}

bool SystemLog::WriteError(std::string_view source, std::string_view text) {
  m_write(LOG_USER | LOG_ERR, Plain(source) + ": " + Plain(text));
  return true;
}

}  // namespace pellora::libreoffice
