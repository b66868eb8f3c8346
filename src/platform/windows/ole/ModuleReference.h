#pragma once

namespace pellora::ole {

/// Something that keeps this module loaded while it lives: every automation object and every lock of the class factory
/// holds one.
class ModuleReference {
 public:
  ModuleReference() noexcept;
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;
  ~ModuleReference();

  /// How many there are in this module.
  static long Count() noexcept;
};

}  // namespace pellora::ole
