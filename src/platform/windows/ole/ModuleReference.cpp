#include "platform/windows/ole/ModuleReference.h"

#include <atomic>

namespace pellora::ole {
namespace {

// The system asks whether it may unload from any thread.
std::atomic<long> g_references{0};

}  // namespace

ModuleReference::ModuleReference() noexcept { ++g_references; }
ModuleReference::~ModuleReference() { --g_references; }
void ModuleReference::Lock(bool lock) noexcept { lock ? ++g_references : --g_references; }
long ModuleReference::Count() noexcept { return g_references; }

}  // namespace pellora::ole
