#include "workbook/Host.h"

#include "workbook/Objects.h"
#include "workbook/State.h"

namespace pellora::workbook {

Host::Host() : m_state(std::make_shared<State>()) {
  m_state->document.AddSheet("Sheet1");
  m_state->fail = &fail;
}

Host::~Host() { m_state->fail = nullptr; }

DispatchPtr Host::Application() const { return std::make_shared<ApplicationObject>(m_state); }
Document& Host::document() { return m_state->document; }
void Host::Open(std::string_view path) { m_state->Open(path); }
void Host::Save(std::string_view path) { m_state->Save(path); }

std::uint64_t Host::CallCount() const { return m_state->calls; }
const std::map<std::string, std::uint64_t>& Host::Calls() const { return m_state->callsByMember; }

void Host::Pick(std::string_view address) { m_state->picked = address; }

void Host::ResetCalls() {
  m_state->calls = 0;
  m_state->callsByMember.clear();
}

}  // namespace pellora::workbook
