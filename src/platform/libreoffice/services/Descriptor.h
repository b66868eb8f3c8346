#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

namespace pellora::libreoffice {

/// An open file of the system; -1 for none.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : m_descriptor(other.detach()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~Descriptor() { reset(); }

  int get() const { return m_descriptor; }
  explicit operator bool() const { return m_descriptor >= 0; }
  void attach(int descriptor) {
    reset();
    m_descriptor = descriptor;
  }
  int detach() { return std::exchange(m_descriptor, -1); }
  void reset() {
    if (*this) ::close(detach());
  }
  /// Closes and answers the system's error number: some file systems tell only now that a write was lost.
  int close() { return ::close(detach()) == 0 ? 0 : errno; }

 private:
  int m_descriptor = -1;
};

/// The answer of a system call that is made again as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call&& call) {
  for (;;) {
    const auto answer = call();
    if (answer != -1 || errno != EINTR) return answer;
  }
}

/// The text as the system takes paths, up to a terminating zero; empty, which names no file, when it has a zero inside.
inline std::string SystemPath(std::string_view path) {
  return path.find('\0') == std::string_view::npos ? std::string(path) : std::string();
}

}  // namespace pellora::libreoffice
