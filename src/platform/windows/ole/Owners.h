#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/windows/Windows.h"

/// Owners of what automation hands around, all with the same verbs: `get` looks, `put` releases and gives the address
/// for an output argument, `attach` takes over, `detach` gives away, `reset` releases. They move; they do not copy
/// unless a line says so.
namespace pellora::ole {

/// UTF-8 to the system's wide text and back; ill-formed input becomes U+FFFD.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// A text of automation. Null and empty are the same text.
class BStr {
 public:
  BStr() = default;
  /// From UTF-8; raises 7 (out of memory).
  explicit BStr(std::string_view text);
  BStr(BStr&& other) noexcept : m_text(other.detach()) {}
  BStr& operator=(BStr&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~BStr() { reset(); }

  BSTR get() const { return m_text; }
  BSTR* put() {
    reset();
    return &m_text;
  }
  void attach(BSTR text) {
    reset();
    m_text = text;
  }
  BSTR detach() { return std::exchange(m_text, nullptr); }
  void reset() { SysFreeString(std::exchange(m_text, nullptr)); }

  /// As UTF-8.
  std::string Text() const;

 private:
  BSTR m_text = nullptr;
};

/// A value of automation, with what it holds.
class OleVariant {
 public:
  OleVariant() { VariantInit(&m_value); }
  OleVariant(OleVariant&& other) noexcept : m_value(other.detach()) {}
  OleVariant& operator=(OleVariant&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~OleVariant() { reset(); }

  const VARIANT& get() const { return m_value; }
  VARIANT& get() { return m_value; }
  VARIANT* put() {
    reset();
    return &m_value;
  }
  void attach(const VARIANT& value) {
    reset();
    m_value = value;
  }
  VARIANT detach() {
    const VARIANT value = m_value;
    VariantInit(&m_value);
    return value;
  }
  void reset() { VariantClear(&m_value); }

 private:
  VARIANT m_value;
};

/// A counted reference to an interface; null for none. Copies.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  /// Shares `object`, with a count of its own.
  explicit ComPtr(Interface* object) : m_object(object) {
    if (m_object) m_object->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.m_object) {}
  ComPtr(ComPtr&& other) noexcept : m_object(other.detach()) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }
  ~ComPtr() { reset(); }

  Interface* get() const { return m_object; }
  Interface* operator->() const { return m_object; }
  explicit operator bool() const { return m_object != nullptr; }
  Interface** put() {
    reset();
    return &m_object;
  }
  void attach(Interface* object) {
    reset();
    m_object = object;
  }
  Interface* detach() { return std::exchange(m_object, nullptr); }
  void reset() {
    if (Interface* object = std::exchange(m_object, nullptr)) object->Release();
  }

  /// The same object by another interface, null when it has none.
  template <class Other>
  ComPtr<Other> As() const {
    ComPtr<Other> other;
    if (m_object) m_object->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(other.put()));
    return other;
  }

 private:
  Interface* m_object = nullptr;
};

/// An array of automation.
class OleArray {
 public:
  OleArray() = default;
  explicit OleArray(SAFEARRAY* array) : m_array(array) {}
  OleArray(OleArray&& other) noexcept : m_array(other.detach()) {}
  OleArray& operator=(OleArray&& other) noexcept {
    if (this != &other) attach(other.detach());
    return *this;
  }
  ~OleArray() { reset(); }

  SAFEARRAY* get() const { return m_array; }
  SAFEARRAY** put() {
    reset();
    return &m_array;
  }
  void attach(SAFEARRAY* array) {
    reset();
    m_array = array;
  }
  SAFEARRAY* detach() { return std::exchange(m_array, nullptr); }
  void reset() {
    if (m_array) SafeArrayDestroy(std::exchange(m_array, nullptr));
  }

 private:
  SAFEARRAY* m_array = nullptr;
};

/// The error record of a late-bound call, with its texts.
class ExcepInfo {
 public:
  ExcepInfo() = default;
  ExcepInfo(const ExcepInfo&) = delete;
  ExcepInfo& operator=(const ExcepInfo&) = delete;
  ~ExcepInfo() { reset(); }

  const EXCEPINFO& get() const { return m_info; }
  EXCEPINFO* put() {
    reset();
    return &m_info;
  }
  /// Lets the object that failed fill the record in now, where it put that off.
  void Complete();
  void reset();

 private:
  EXCEPINFO m_info{};
};

}  // namespace pellora::ole
