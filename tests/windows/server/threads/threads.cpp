// A library with the product's stand-in for the compiler's threads, and something of each kind that goes through it.
// Each door is used by several threads of a test at once.

#include <atomic>
#include <chrono>
#include <exception>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#define DOOR extern "C" __declspec(dllexport)

namespace {

thread_local int t_fromZero;
thread_local int t_fromForty = 40;

std::atomic<int> g_made, g_called;
std::mutex g_mutex;
int g_counted;

// Long enough for the other threads to come to the same place.
void LetOthersCome() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

struct Made {
  explicit Made(bool fails = false) {
    LetOthersCome();
    if (fails) throw std::runtime_error("not yet");
    ++g_made;
  }
};

}  // namespace

// How often a thread found its own exception, and no other, thrown within the handling of another one.
DOOR int CatchOnes(int times) {
  const std::string mine = std::to_string(reinterpret_cast<std::size_t>(&times));
  int found = 0;
  for (int i = 0; i < times; ++i) try {
      throw std::runtime_error("outer " + mine);
    } catch (const std::exception& outer) {
      try {
        throw std::runtime_error("inner " + mine);
      } catch (const std::exception& inner) {
        found += inner.what() == "inner " + mine;
      }
      found += outer.what() == "outer " + mine && std::uncaught_exceptions() == 0 && std::current_exception();
    }
  return found / 2;
}

DOOR int CountFromZero() { return ++t_fromZero; }
DOOR int CountFromForty() { return ++t_fromForty; }

DOOR int MakeStatic() {
  static const Made made;
  return g_made;
}

// 1 when it could be made, which the first time it cannot.
DOOR int MakeAtSecondTry() {
  static std::atomic<bool> tried;
  try {
    static const Made made(!tried.exchange(true));
    return 1;
  } catch (const std::exception&) {
    return 0;
  }
}

DOOR int CallOnce() {
  static std::once_flag once;
  std::call_once(once, [] {
    LetOthersCome();
    ++g_called;
  });
  return g_called;
}

DOOR int CountUnderLock(int times) {
  for (int i = 0; i < times; ++i) {
    const std::lock_guard lock(g_mutex);
    ++g_counted;
  }
  const std::lock_guard lock(g_mutex);
  return g_counted;
}
