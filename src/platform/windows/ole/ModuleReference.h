#pragma once

namespace pellora::ole {

/// Something that keeps this module loaded while it lives: every automation object holds one.
class ModuleReference {
 public:
  ModuleReference() noexcept;
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;
  ~ModuleReference();

  /// Counts one more, or one less, that belongs to no object: a lock that is set through the class factory.
  static void Lock(bool lock) noexcept;

  /// How many there are in this module, locks included.
  static long Count() noexcept;
};

}  // namespace pellora::ole
