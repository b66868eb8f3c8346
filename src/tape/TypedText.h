#pragma once

#include <string>
#include <string_view>

namespace pellora {

/// What to write into a cell so that it reads back as exactly this text. A cell reads what is written as if it were
/// typed: formulas, numbers, dates, truth and error values are recognised, and a leading apostrophe is swallowed. Where
/// a text could be taken for one of these, an apostrophe is put before it, which marks text and is not part of it.
std::string AsTypedText(std::string_view text);

/// `text` with every character of `symbols` replaced by `replacement`. Both are read character by character.
std::string ReplaceEach(std::string_view text, std::string_view symbols, std::string_view replacement);

}  // namespace pellora
