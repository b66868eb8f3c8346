#include "workbook/Reference.h"

#include <algorithm>

#include "core/Text.h"

namespace pellora::workbook {
namespace {

// A name may refer to a name; a ring of them must end.
constexpr int kMostNames = 16;
// And names of several names must not multiply without end.
constexpr int kMostPieces = 4096;

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsWordByte(char c) {
  const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
  return letter || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

// The pieces between commas that stand outside of apostrophes.
std::vector<std::string_view> SplitUnion(std::string_view text) {
  std::vector<std::string_view> pieces;
  bool quoted = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (text[i] != ',' || quoted) continue;
    pieces.push_back(Trim(text.substr(start, i - start)));
    start = i + 1;
  }
  pieces.push_back(Trim(text.substr(start)));
  return pieces;
}

// A sheet name in apostrophes at the beginning of `text`, which moves behind the "!"; nothing when it is none.
std::optional<std::string> TakeQuotedSheet(std::string_view& text) {
  std::string name;
  for (std::size_t i = 1; i < text.size(); ++i) {
    const bool apostrophe = text[i] == '\'';
    const bool doubled = apostrophe && i + 1 < text.size() && text[i + 1] == '\'';
    if (apostrophe && !doubled) {
      if (i + 1 >= text.size() || text[i + 1] != '!') return std::nullopt;
      text.remove_prefix(i + 2);
      return name;
    }
    name += text[i];
    if (doubled) ++i;
  }
  return std::nullopt;
}

std::optional<std::string> TakePlainSheet(std::string_view& text, std::size_t mark) {
  const std::string_view name = text.substr(0, mark);
  if (name.empty() || !std::all_of(name.begin(), name.end(), IsWordByte)) return std::nullopt;
  text.remove_prefix(mark + 1);
  return std::string(name);
}

class Resolver {
 public:
  Resolver(const Document& document, ReferenceFault& fault) : m_document(document), m_fault(fault) {}

  std::optional<Reference> Union(const std::shared_ptr<Sheet>& base, std::string_view text, int depth) {
    Reference all;
    for (const std::string_view piece : SplitUnion(text)) {
      auto one = Piece(base, piece, depth);
      if (!one) return std::nullopt;
      if (all.sheet && all.sheet != one->sheet) return Fail(ReferenceFault::NotAReference);
      all.sheet = one->sheet;
      all.areas.insert(all.areas.end(), one->areas.begin(), one->areas.end());
    }
    return all;
  }

 private:
  std::optional<Reference> Fail(ReferenceFault fault) {
    m_fault = fault;
    return std::nullopt;
  }

  std::optional<Reference> Piece(std::shared_ptr<Sheet> base, std::string_view text, int depth) {
    if (++m_pieces > kMostPieces) return Fail(ReferenceFault::NotAReference);
    const auto mark = text.find('!');
    if (!text.empty() && (mark != std::string_view::npos || text.front() == '\'')) {
      const auto name = text.front() == '\'' ? TakeQuotedSheet(text) : TakePlainSheet(text, mark);
      if (!name) return Fail(ReferenceFault::NotAReference);
      base = SheetNamed(*name);
      if (!base) return Fail(ReferenceFault::MissingSheet);
    }
    if (const auto area = ParseArea(text)) return Reference{base, {*area}};
    return Name(base, text, depth);
  }

  std::shared_ptr<Sheet> SheetNamed(std::string_view name) const {
    const auto& sheets = m_document.sheets;
    const auto hit =
        std::find_if(sheets.begin(), sheets.end(), [&](const auto& sheet) { return EqualNoCase(sheet->name, name); });
    return hit == sheets.end() ? nullptr : *hit;
  }

  std::optional<Reference> Name(const std::shared_ptr<Sheet>& base, std::string_view text, int depth) {
    if (!IsNameText(text)) return Fail(ReferenceFault::NotAReference);
    const std::string* refersTo = m_document.FindName(text);
    if (!refersTo || depth >= kMostNames) return Fail(ReferenceFault::UnknownName);
    std::string_view meaning = *refersTo;
    if (!meaning.empty() && meaning.front() == '=') meaning.remove_prefix(1);
    return Union(base, meaning, depth + 1);
  }

  const Document& m_document;
  ReferenceFault& m_fault;
  int m_pieces = 0;
};

}  // namespace

std::optional<Reference> Resolve(const Document& document, const std::shared_ptr<Sheet>& base, std::string_view text,
                                 ReferenceFault* fault) {
  ReferenceFault found = ReferenceFault::None;
  auto reference = Resolver(document, found).Union(base, text, 0);
  if (fault) *fault = found;
  return reference;
}

bool IsNameText(std::string_view text) {
  const auto inside = [](char c) { return IsWordByte(c) || c == '\\' || c == '?'; };
  if (text.empty() || (text.front() >= '0' && text.front() <= '9') || text.front() == '.' || text.front() == '?')
    return false;
  return std::all_of(text.begin(), text.end(), inside) && !ParseCell(text);
}

std::string SheetNameInReference(std::string_view name) {
  const bool plain = IsNameText(name) && name.find_first_of("\\?") == std::string_view::npos;
  return plain ? std::string(name) : "'" + Replace(name, "'", "''") + "'";
}

}  // namespace pellora::workbook
