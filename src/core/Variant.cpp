#include "core/Variant.h"

#include "core/Error.h"

namespace pellora {
namespace {

template <class T, class Value>
const T& Held(const Value& value) {
  if (const T* held = std::get_if<T>(&value)) return *held;
  throw Error(errors::TypeMismatch);
}

}  // namespace

VariantArray::VariantArray(std::size_t rows, std::size_t columns, int rowBase, int columnBase, int dimensions)
    : m_rows(rows),
      m_columns(columns),
      m_rowBase(rowBase),
      m_columnBase(columnBase),
      m_dimensions(dimensions),
      m_values(rows * columns) {}

std::size_t VariantArray::Index(std::size_t row, std::size_t column) const {
  if (row >= m_rows || column >= m_columns) throw Error(errors::SubscriptOutOfRange);
  return row * m_columns + column;
}

const Variant& VariantArray::At(std::size_t row, std::size_t column) const { return m_values[Index(row, column)]; }
Variant& VariantArray::At(std::size_t row, std::size_t column) { return m_values[Index(row, column)]; }

Variant Variant::Null() {
  Variant result;
  result.m_value = NullTag{};
  return result;
}

Variant Variant::Missing() {
  Variant result;
  result.m_value = MissingTag{};
  return result;
}

bool Variant::Boolean() const { return Held<bool>(m_value); }
std::int16_t Variant::Integer() const { return Held<std::int16_t>(m_value); }
std::int32_t Variant::Long() const { return Held<std::int32_t>(m_value); }
double Variant::Double() const { return Held<double>(m_value); }
double Variant::DateDays() const { return Held<DateValue>(m_value).days; }
const std::string& Variant::String() const { return Held<std::string>(m_value); }
std::int32_t Variant::ErrorCode() const { return Held<ErrorValue>(m_value).code; }
const DispatchPtr& Variant::Object() const { return Held<DispatchPtr>(m_value); }
const VariantArray& Variant::Array() const { return *Held<std::shared_ptr<VariantArray>>(m_value); }
std::shared_ptr<VariantArray> Variant::ArrayPtr() const { return Held<std::shared_ptr<VariantArray>>(m_value); }

}  // namespace pellora
