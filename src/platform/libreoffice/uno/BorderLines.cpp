#include "platform/libreoffice/uno/BorderLines.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/table/BorderLineStyle.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <functional>
#include <optional>

#include "core/Convert.h"
#include "platform/libreoffice/uno/Documents.h"
#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
namespace style = com::sun::star::table::BorderLineStyle;
using css::table::BorderLine2;
using css::table::TableBorder2;
using Properties = css::uno::Reference<css::beans::XPropertySet>;

constexpr std::int32_t kNone = -4142;
constexpr std::int32_t kAutomatic = -4105;
constexpr std::int32_t kColors = 56;

struct Pair {
  std::int32_t number;
  std::int32_t native;
};

constexpr Pair kStyles[] = {{1, style::SOLID},        {-4115, style::DASHED},     {4, style::DASH_DOT},
                            {5, style::DASH_DOT_DOT}, {-4118, style::DOTTED},     {-4119, style::DOUBLE},
                            {13, style::DASH_DOT},    {-4115, style::FINE_DASHED}};
// Weights and the widths of lines, in hundredths of a millimetre: hairline, thin, medium, thick.
constexpr Pair kWeights[] = {{1, 2}, {2, 26}, {-4138, 88}, {4, 141}};
constexpr std::int32_t kThinWidth = 26;

// The lines of a range by their index; the two diagonals are properties of their own.
struct Edge {
  std::int32_t index;
  const char* diagonal;
  BorderLine2 TableBorder2::*line;
  sal_Bool TableBorder2::*valid;
};

constexpr Edge kEdges[] = {
    {5, "DiagonalTLBR2", nullptr, nullptr},
    {6, "DiagonalBLTR2", nullptr, nullptr},
    {7, nullptr, &TableBorder2::LeftLine, &TableBorder2::IsLeftLineValid},
    {8, nullptr, &TableBorder2::TopLine, &TableBorder2::IsTopLineValid},
    {9, nullptr, &TableBorder2::BottomLine, &TableBorder2::IsBottomLineValid},
    {10, nullptr, &TableBorder2::RightLine, &TableBorder2::IsRightLineValid},
    {11, nullptr, &TableBorder2::VerticalLine, &TableBorder2::IsVerticalLineValid},
    {12, nullptr, &TableBorder2::HorizontalLine, &TableBorder2::IsHorizontalLineValid},
};

bool IsLine(const BorderLine2& line) {
  return line.LineStyle != style::NONE && line.LineWidth + line.OuterLineWidth > 0;
}

BorderLine2 ThinLine() {
  BorderLine2 line;
  line.LineStyle = style::SOLID;
  line.OuterLineWidth = kThinWidth;
  line.LineWidth = kThinWidth;
  return line;
}

Properties PropertiesOf(const Call& call) {
  return Properties(NativeRange(*call.object.owner()), css::uno::UNO_QUERY_THROW);
}

TableBorder2 BorderOf(const Properties& properties) {
  TableBorder2 border;
  properties->getPropertyValue("TableBorder2") >>= border;
  return border;
}

// The line at an edge; nothing where the cells differ.
std::optional<BorderLine2> LineAt(const Properties& properties, const Edge& edge) {
  BorderLine2 line;
  if (edge.diagonal) {
    if (properties->getPropertyValue(rtl::OUString::createFromAscii(edge.diagonal)) >>= line) return line;
    return std::nullopt;
  }
  const TableBorder2 border = BorderOf(properties);
  if (!(border.*edge.valid)) return std::nullopt;
  return border.*edge.line;
}

void PutLine(const Properties& properties, const Edge& edge, const BorderLine2& line) {
  if (edge.diagonal) {
    properties->setPropertyValue(rtl::OUString::createFromAscii(edge.diagonal), css::uno::Any(line));
    return;
  }
  // Only the lines that are marked as valid are drawn.
  TableBorder2 border;
  border.*edge.line = line;
  border.*edge.valid = true;
  properties->setPropertyValue("TableBorder2", css::uno::Any(border));
}

bool IsOneLine(const Call& call) { return call.object.type().Kind() == ObjectKind::Border; }

const Edge& EdgeOf(const Call& call) {
  const std::int32_t index = ToLong(call.object.index());
  for (const Edge& edge : kEdges)
    if (edge.index == index) return edge;
  Refuse("Unable to get the Borders property of the Range class");
}

using Change = std::function<void(BorderLine2&)>;

// Changes the line, or all lines but the diagonals.
void ChangeLines(const Call& call, const Change& change) {
  const Properties properties = PropertiesOf(call);
  for (const Edge& edge : kEdges) {
    if (IsOneLine(call) ? &edge != &EdgeOf(call) : edge.diagonal != nullptr) continue;
    BorderLine2 line = LineAt(properties, edge).value_or(ThinLine());
    change(line);
    PutLine(properties, edge, line);
  }
}

BorderLine2 Drawn(const BorderLine2& line) { return IsLine(line) ? line : ThinLine(); }

DispatchPtr Book(const Call& call) {
  const auto application = ObjectIn(call.object.owner()->Plain("application", CallKind::Get, {}));
  return ObjectIn(application->Invoke("ActiveWorkbook", CallKind::Get, {}));
}

// The program counts red first, the object model of macros blue.
std::int32_t Swapped(std::int32_t color) { return ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF); }

std::int32_t ColorAt(const DispatchPtr& book, std::int32_t index) {
  const Variant number(index);
  return Swapped(ToLong(book->Invoke("Colors", CallKind::Get, {&number, 1})));
}

}  // namespace

bool OfRange(const Call& call) { return call.object.owner() != nullptr; }

Variant ReadLineStyle(const Call& call) {
  const auto line = LineAt(PropertiesOf(call), EdgeOf(call));
  if (!line) return Variant::Null();
  if (!IsLine(*line)) return kNone;
  for (const Pair& pair : kStyles)
    if (pair.native == line->LineStyle) return pair.number;
  return 1;
}

Variant PutLineStyle(const Call& call) {
  const std::int32_t number = ToLong(call.At(0));
  if (number == kNone) {
    BorderLine2 none;
    none.LineStyle = style::NONE;
    return ChangeLines(call, [&](BorderLine2& line) { line = none; }), Variant();
  }
  for (const Pair& pair : kStyles)
    if (pair.number == number)
      return ChangeLines(call,
                         [&](BorderLine2& line) {
                           line = Drawn(line);
                           line.LineStyle = static_cast<sal_Int16>(pair.native);
                         }),
             Variant();
  Refuse("Unable to set the LineStyle property of the Border class");
}

Variant ReadWeight(const Call& call) {
  const auto line = LineAt(PropertiesOf(call), EdgeOf(call));
  if (!line) return Variant::Null();
  // The nearest weight that is not thinner.
  for (const Pair& pair : kWeights)
    if (static_cast<std::int32_t>(line->LineWidth) <= pair.native) return IsLine(*line) ? pair.number : 2;
  return kWeights[std::size(kWeights) - 1].number;
}

Variant PutWeight(const Call& call) {
  const std::int32_t number = ToLong(call.At(0));
  for (const Pair& pair : kWeights)
    if (pair.number == number)
      return ChangeLines(call,
                         [&](BorderLine2& line) {
                           line = Drawn(line);
                           line.LineWidth = static_cast<sal_uInt32>(pair.native);
                           line.OuterLineWidth = static_cast<sal_Int16>(pair.native);
                           line.InnerLineWidth = 0;
                           line.LineDistance = 0;
                         }),
             Variant();
  Refuse("Unable to set the Weight property of the Border class");
}

Variant ReadColorIndex(const Call& call) {
  const auto line = LineAt(PropertiesOf(call), EdgeOf(call));
  if (!line) return Variant::Null();
  if (!IsLine(*line)) return kNone;
  const auto book = Book(call);
  for (std::int32_t index = 1; index <= kColors; ++index)
    if (ColorAt(book, index) == line->Color) return index;
  return kAutomatic;
}

Variant ReadBackground(const Call& call) {
  const css::uno::Reference<css::beans::XPropertyState> cells(NativeRange(*call.object.owner()), css::uno::UNO_QUERY);
  const bool differ =
      cells.is() && cells->getPropertyState("CellBackColor") == css::beans::PropertyState_AMBIGUOUS_VALUE;
  return differ ? Variant::Null() : call.Plain();
}

Variant PutColorIndex(const Call& call) {
  const std::int32_t number = ToLong(call.At(0));
  if (number == kNone) {
    const Variant none(kNone);
    return PutLineStyle({call.object, call.name, call.kind, {&none, 1}});
  }
  const bool known = number == kAutomatic || (number >= 1 && number <= kColors);
  if (!known) Refuse("Unable to set the ColorIndex property of the Border class");
  const std::int32_t color = number == kAutomatic ? 0 : ColorAt(Book(call), number);
  ChangeLines(call, [&](BorderLine2& line) {
    line = Drawn(line);
    line.Color = color;
  });
  return {};
}

}  // namespace pellora::libreoffice
