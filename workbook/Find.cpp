#include <optional>
#include <string>

#include "workbook/RangeObject.h"
#include "workbook/Showing.h"

namespace pellora::workbook {
namespace {

constexpr std::int32_t kValues = -4163, kFormulas = -4123, kWhole = 1, kPart = 2, kByRows = 1, kNext = 1;

// Case folded once, so that every cell costs one conversion.
std::string Folded(std::string_view text) { return CurrentTextServices().Upper(text); }

// True when the whole of `text` matches a pattern with "*" (any text), "?" (one character) and "~" before a
// character that is to be taken as it is. Goes back to the last "*" only, which is enough.
bool Matches(std::u16string_view text, std::u16string_view pattern) {
  std::size_t t = 0, p = 0, star = std::u16string_view::npos, retry = 0;
  while (t < text.size()) {
    const bool escaped = p + 1 < pattern.size() && pattern[p] == u'~';
    const char16_t wanted = p < pattern.size() ? pattern[p + (escaped ? 1 : 0)] : u'\0';
    if (p < pattern.size() && !escaped && wanted == u'*') {
      star = ++p, retry = t;
    } else if (p < pattern.size() && ((!escaped && wanted == u'?') || wanted == text[t])) {
      ++t, p += escaped ? 2 : 1;
    } else if (star != std::u16string_view::npos) {
      p = star, t = ++retry;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') ++p;
  return p == pattern.size();
}

// What is looked for, in the order of the call's arguments.
class Search {
 public:
  Search(const RangeObject& range, const Arguments& a)
      : m_range(range),
        m_anything(a.Text(0) == "*"),
        m_case(a.Boolean(6, false)),
        m_values(a.Long(2, kFormulas) == kValues),
        m_byRows(a.Long(4, kByRows) == kByRows),
        m_forward(a.Long(5, kNext) == kNext) {
    const std::int32_t lookIn = a.Long(2, kFormulas), lookAt = a.Long(3, kPart);
    if ((lookIn != kValues && lookIn != kFormulas) || (lookAt != kWhole && lookAt != kPart)) Refuse();
    const std::string what = m_case ? a.Text(0) : Folded(a.Text(0));
    m_pattern = ToUtf16(lookAt == kWhole ? what : "*" + what + "*");
    CellPlace after = range.first().First();
    if (a.Has(1)) after = AsRange(a.At(1))->first().First();
    m_after = Order(after);
  }

  std::optional<CellPlace> Run() {
    for (const Area& area : m_range.areas())
      ForEachCell(std::as_const(m_range.sheet()->cells), area, [&](CellPlace place, const Cell& cell) {
        if (Better(place) && Hit(place, cell)) m_best = place;
      });
    return m_best;
  }

 private:
  std::int64_t Order(CellPlace place) const {
    return m_byRows ? std::int64_t{place.row} * kMaxColumns + place.column
                    : std::int64_t{place.column} * kMaxRows + place.row;
  }

  // How far the search has gone when it comes to a place; it goes round, and the cell after which it starts is last.
  std::int64_t Distance(CellPlace place) const {
    constexpr std::int64_t kRound = std::int64_t{1} << 40;
    const std::int64_t way = m_forward ? Order(place) - m_after : m_after - Order(place);
    return way > 0 ? way : way + kRound;
  }

  bool Better(CellPlace place) const { return !m_best || Distance(place) < Distance(*m_best); }

  bool Hit(CellPlace place, const Cell& cell) const {
    const bool formula = !cell.formula.empty();
    if (m_anything && !m_values) return formula || !IsBlank(cell.value);
    const std::string text =
        formula && !m_values ? cell.formula : DisplayText(Shown(m_range.state().document, m_range.sheet(), place));
    return !text.empty() && Matches(ToUtf16(m_case ? text : Folded(text)), m_pattern);
  }

  static bool IsBlank(const Variant& value) {
    return value.IsEmpty() || (value.Is(Variant::Type::String) && value.String().empty());
  }

  const RangeObject& m_range;
  bool m_anything, m_case, m_values, m_byRows, m_forward;
  std::u16string m_pattern;
  std::int64_t m_after = 0;
  std::optional<CellPlace> m_best;
};

}  // namespace

Variant FindIn(const RangeObject& range, const Arguments& arguments) {
  const auto hit = Search(range, arguments).Run();
  return hit ? range.On(Area::Of(*hit)) : Wrap(nullptr);
}

}  // namespace pellora::workbook
