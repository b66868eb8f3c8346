#include "platform/windows/forms/Manifest.h"

namespace pellora::windows {
namespace {

HANDLE MakeContext(HINSTANCE module, int resource) {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof(wanted);
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = module;
  wanted.lpResourceName = MAKEINTRESOURCEW(resource);
  return ::CreateActCtxW(&wanted);
}

}  // namespace

Manifest::Manifest(HINSTANCE module, int resource) : m_context(MakeContext(module, resource)) {}

Manifest::~Manifest() {
  if (m_context != INVALID_HANDLE_VALUE) ::ReleaseActCtx(m_context);
}

ManifestScope::ManifestScope(const Manifest& manifest)
    : m_active(manifest.get() != INVALID_HANDLE_VALUE && ::ActivateActCtx(manifest.get(), &m_cookie)) {}

ManifestScope::~ManifestScope() {
  if (m_active) ::DeactivateActCtx(0, m_cookie);
}

}  // namespace pellora::windows
