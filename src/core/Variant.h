#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pellora {

class Dispatch;
class Variant;

/// A reference to a late-bound object; empty means "nothing".
using DispatchPtr = std::shared_ptr<Dispatch>;

/// A one- or two-dimensional array of values, as the spreadsheet answers a block of cells: rows by columns, indexed
/// from `RowBase()` and `ColumnBase()` (both 1 for blocks of cells). A one-dimensional array has one row.
class VariantArray {
 public:
  VariantArray(std::size_t rows, std::size_t columns, int rowBase = 1, int columnBase = 1, int dimensions = 2);

  std::size_t Rows() const { return m_rows; }
  std::size_t Columns() const { return m_columns; }
  int RowBase() const { return m_rowBase; }
  int ColumnBase() const { return m_columnBase; }
  /// 1 or 2.
  int Dimensions() const { return m_dimensions; }

  /// The value at a position counted from 0, whatever the bases; raises 9 (subscript out of range) outside.
  const Variant& At(std::size_t row, std::size_t column) const;
  Variant& At(std::size_t row, std::size_t column);

 private:
  std::size_t Index(std::size_t row, std::size_t column) const;

  std::size_t m_rows, m_columns;
  int m_rowBase, m_columnBase, m_dimensions;
  std::vector<Variant> m_values;
};

/// A value as automation knows it. Text is UTF-8; dates are days since 1899-12-30, as everywhere in automation.
/// Copies are cheap: arrays and objects are shared.
class Variant {
 public:
  enum class Type { Empty, Null, Missing, Boolean, Integer, Long, Double, Date, String, Error, Object, Array };

  /// A date, kept apart from a plain number by its type.
  struct DateValue {
    double days;
    bool operator==(const DateValue&) const = default;
  };
  /// An error value of a cell: its automation code, 0x800A07D0 and on (#N/A: 0x800A07FA).
  struct ErrorValue {
    std::int32_t code;
    bool operator==(const ErrorValue&) const = default;
  };

  Variant() = default;
  Variant(bool value) : m_value(value) {}
  Variant(std::int16_t value) : m_value(value) {}
  Variant(std::int32_t value) : m_value(value) {}
  Variant(double value) : m_value(value) {}
  Variant(DateValue value) : m_value(value) {}
  Variant(ErrorValue value) : m_value(value) {}
  Variant(std::string value) : m_value(std::move(value)) {}
  Variant(std::string_view value) : m_value(std::string(value)) {}
  Variant(const char* value) : m_value(std::string(value)) {}
  Variant(DispatchPtr value) : m_value(std::move(value)) {}
  Variant(std::shared_ptr<VariantArray> value) : m_value(std::move(value)) {}

  static Variant Null();
  /// An optional argument that is left out.
  static Variant Missing();
  static Variant Date(double days) { return DateValue{days}; }
  static Variant CellError(std::int32_t code) { return ErrorValue{code}; }

  Type Kind() const { return static_cast<Type>(m_value.index()); }
  bool Is(Type type) const { return Kind() == type; }
  bool IsEmpty() const { return Is(Type::Empty); }

  /// The held value, as it is; raises 13 (type mismatch) when another kind is held. For conversions see Convert.h.
  bool Boolean() const;
  std::int16_t Integer() const;
  std::int32_t Long() const;
  double Double() const;
  double DateDays() const;
  const std::string& String() const;
  std::int32_t ErrorCode() const;
  /// The held object; may be nothing.
  const DispatchPtr& Object() const;
  const VariantArray& Array() const;
  std::shared_ptr<VariantArray> ArrayPtr() const;

  /// Same kind and same value; arrays and objects by identity.
  bool operator==(const Variant&) const = default;

 private:
  struct NullTag {
    bool operator==(const NullTag&) const = default;
  };
  struct MissingTag {
    bool operator==(const MissingTag&) const = default;
  };

  // The alternatives stand in the order of `Type`.
  std::variant<std::monostate, NullTag, MissingTag, bool, std::int16_t, std::int32_t, double, DateValue, std::string,
               ErrorValue, DispatchPtr, std::shared_ptr<VariantArray>>
      m_value;
};

}  // namespace pellora
