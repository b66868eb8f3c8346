// What the compiler's run time asks of threads, answered by means of the system that leave nothing behind.
//
// The library of threads that comes with the compiler keeps handles for the life of the process: those of a thread's
// record and of locks that nobody outside can reach. A host that frees and loads this library all day would collect
// them. The run time needs little of it, which is defined here under the names it asks for, so that the other is not
// linked. Locks here are words of the system's own kind, without a handle, and what a thread has for itself lies in the
// block that the loader makes with each thread and frees with this module.
//
// A name that is asked for and not defined here brings the other library in, and the linker reports names defined
// twice: it belongs here then.

#include <errno.h>
#include <pthread.h>
#include <time.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/windows/Windows.h"

// Of the module's start-up code: the number and the frame of the module's blocks. No header declares them.
extern "C" ULONG _tls_index;
extern "C" const IMAGE_TLS_DIRECTORY _tls_used;

// Called by name from code that the compiler makes, which shows no use of them when the program is optimised as a
// whole.
#define PELLORA_RUN_TIME extern "C" [[gnu::used]]

namespace {

// Variables of a thread's own.

constexpr std::size_t kBlockSize = 1024;
// That of the system's heap, from which the loader takes the blocks.
constexpr std::size_t kWidestAlignment = 2 * sizeof(void*);

// As the compiler lays it out for each variable of a thread's own.
struct ThreadVariable {
  std::size_t size, alignment;
  // Where in the block it begins; 0 as long as no thread has asked.
  std::atomic<std::size_t> place;
  // Nothing for one that begins as zeros.
  const void* beginsAs;
};

// The pattern of every thread's block. It begins as zeros and so do the variables in it.
[[gnu::section(".tls$PELLORA"), gnu::used]] alignas(kWidestAlignment) std::byte g_pattern[kBlockSize]{};

SRWLOCK g_placing = SRWLOCK_INIT;
// A variable never begins at 0.
std::size_t g_placed = kWidestAlignment;

// The loader's list of this thread's blocks, by the modules' numbers. The headers' way to it makes this compiler warn
// of an array that is not there.
std::byte** BlocksOfThread() {
  std::byte** blocks;
#ifdef _WIN64
  asm volatile("movq %%gs:0x58, %0" : "=r"(blocks));
#else
  asm volatile("movl %%fs:0x2C, %0" : "=r"(blocks));
#endif
  return blocks;
}

std::byte* BlockOfThread() {
  const auto offset = reinterpret_cast<std::uintptr_t>(g_pattern) - _tls_used.StartAddressOfRawData;
  return BlocksOfThread()[_tls_index] + offset;
}

constexpr std::size_t RoundUp(std::size_t value, std::size_t to) { return (value + to - 1) / to * to; }

// Before a variable that does not begin as zeros is a byte that says whether this thread's has begun.
std::size_t Place(ThreadVariable& variable) {
  AcquireSRWLockExclusive(&g_placing);
  std::size_t place = variable.place.load(std::memory_order_relaxed);
  if (!place) {
    place = RoundUp(g_placed + (variable.beginsAs ? 1 : 0), std::max<std::size_t>(variable.alignment, 1));
    // Not a matter of chance: the variables are few and the same in every run, so that the first run of a test says it.
    if (variable.alignment > kWidestAlignment || place + variable.size > kBlockSize) std::abort();
    g_placed = place + variable.size;
    variable.place.store(place, std::memory_order_release);
  }
  ReleaseSRWLockExclusive(&g_placing);
  return place;
}

// Things done once.

// One lock for all of them: they are short and seldom, and most find theirs done before they come here.
SRWLOCK g_once = SRWLOCK_INIT;
CONDITION_VARIABLE g_onceChanged = CONDITION_VARIABLE_INIT;

// How far one is, at the beginning of the words that the compiler and the run time keep for it. Compiled code looks at
// the first sign by itself.
struct Once {
  unsigned char done, running;
};

template <class Word>
Once& OnceIn(Word& word) {
  static_assert(sizeof(Word) >= sizeof(Once));
  return reinterpret_cast<Once&>(word);
}

bool IsDone(Once& once) { return std::atomic_ref(once.done).load(std::memory_order_acquire) != 0; }

// Whether it is now the caller's to do; otherwise it is done.
bool BeginOnce(Once& once) {
  if (IsDone(once)) return false;
  AcquireSRWLockExclusive(&g_once);
  while (once.running) SleepConditionVariableSRW(&g_onceChanged, &g_once, INFINITE, 0);
  const bool mine = !once.done;
  once.running = mine;
  ReleaseSRWLockExclusive(&g_once);
  return mine;
}

void EndOnce(Once& once, bool done) {
  AcquireSRWLockExclusive(&g_once);
  std::atomic_ref(once.done).store(done, std::memory_order_release);
  once.running = false;
  ReleaseSRWLockExclusive(&g_once);
  WakeAllConditionVariable(&g_onceChanged);
}

// Locks.

// The word of a lock is the system's. One that begins with the other library's sign for a new lock is new: the system
// has no such value, in which all its signs would be set.
SRWLOCK* LockOf(pthread_mutex_t& mutex) {
  static_assert(sizeof(SRWLOCK) == sizeof(pthread_mutex_t));
  std::atomic_ref word(mutex);
  auto fresh = PTHREAD_MUTEX_INITIALIZER;
  word.compare_exchange_strong(fresh, 0);
  return reinterpret_cast<SRWLOCK*>(&mutex);
}

// A lock of the system's does not know its owner, who may not take it twice.
bool KnowsItsOwner(const pthread_mutex_t& mutex) {
  return mutex == PTHREAD_RECURSIVE_MUTEX_INITIALIZER || mutex == PTHREAD_ERRORCHECK_MUTEX_INITIALIZER;
}

}  // namespace

PELLORA_RUN_TIME void* __emutls_get_address(ThreadVariable* variable) {
  std::size_t place = variable->place.load(std::memory_order_acquire);
  if (!place) place = Place(*variable);
  std::byte* mine = BlockOfThread() + place;
  if (variable->beginsAs && mine[-1] == std::byte{0}) {
    std::memcpy(mine, variable->beginsAs, variable->size);
    mine[-1] = std::byte{1};
  }
  return mine;
}

PELLORA_RUN_TIME void __emutls_register_common(ThreadVariable* variable, std::size_t size, std::size_t alignment,
                                               const void* beginsAs) {
  variable->size = std::max(variable->size, size);
  variable->alignment = std::max(variable->alignment, alignment);
  if (beginsAs && size == variable->size) variable->beginsAs = beginsAs;
}

// The guard of a static variable of a function.
PELLORA_RUN_TIME int __cxa_guard_acquire(long long* guard) { return BeginOnce(OnceIn(*guard)); }
PELLORA_RUN_TIME void __cxa_guard_release(long long* guard) { EndOnce(OnceIn(*guard), true); }
PELLORA_RUN_TIME void __cxa_guard_abort(long long* guard) { EndOnce(OnceIn(*guard), false); }

PELLORA_RUN_TIME int pthread_once(pthread_once_t* word, void (*body)(void)) {
  Once& once = OnceIn(*word);
  if (!BeginOnce(once)) return 0;
  try {
    body();
  } catch (...) {
    EndOnce(once, false);
    throw;
  }
  EndOnce(once, true);
  return 0;
}

PELLORA_RUN_TIME int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* kind) {
  if (kind) return EINVAL;
  *mutex = PTHREAD_MUTEX_INITIALIZER;
  return 0;
}
PELLORA_RUN_TIME int pthread_mutex_lock(pthread_mutex_t* mutex) {
  if (KnowsItsOwner(*mutex)) return EINVAL;
  AcquireSRWLockExclusive(LockOf(*mutex));
  return 0;
}
PELLORA_RUN_TIME int pthread_mutex_unlock(pthread_mutex_t* mutex) {
  ReleaseSRWLockExclusive(LockOf(*mutex));
  return 0;
}
PELLORA_RUN_TIME int pthread_mutex_destroy(pthread_mutex_t*) { return 0; }

PELLORA_RUN_TIME pthread_t pthread_self() { return GetCurrentThreadId(); }

PELLORA_RUN_TIME int nanosleep(const timespec* asked, timespec*) {
  constexpr long long kMilliseconds = 1000, kNanoseconds = 1'000'000;
  Sleep(static_cast<DWORD>(asked->tv_sec * kMilliseconds + (asked->tv_nsec + kNanoseconds - 1) / kNanoseconds));
  return 0;
}
