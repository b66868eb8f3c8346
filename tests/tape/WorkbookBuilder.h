#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbook/Document.h"
#include "workbook/Host.h"

namespace pellora::test {

/// The quote fields of a whole workbook, in the order of their columns J to S.
inline const std::vector<std::string> kAllFields = {"TWS_Bid_Price",  "TWS_Bid_Size",  "TWS_Ask_Price", "TWS_Ask_Size",
                                                    "TWS_Last_Price", "TWS_Last_Size", "TWS_High",      "TWS_Low",
                                                    "TWS_Volume",     "TWS_Close"};

/// The nine contract cells of an instrument.
using Contract = std::array<Variant, 9>;

inline Contract Stock(std::string_view ticker) {
  return {ticker, "STK", Variant(), Variant(), Variant(), Variant(), "SMART", Variant(), "USD"};
}

/// Fills an embedded workbook in a few lines: "Sheet1" (active), "TWS_Quotes", "Ticker_tape_settings", and the names
/// that lead to them. Instruments and tapes go below each other from row 2.
class WorkbookBuilder {
 public:
  explicit WorkbookBuilder(workbook::Host& host, const std::vector<std::string>& fields = kAllFields)
      : m_document(host.document()) {
    m_document.AddSheet("TWS_Quotes");
    m_document.AddSheet("Ticker_tape_settings");
    m_document.AddName("TWS_Symbol", "TWS_Quotes!$A:$A");
    m_document.AddName("Tape_header_for_Ticker", "Ticker_tape_settings!$A$1");
    static constexpr std::string_view titles[] = {"Ticker",     "Type",     "Expiry",           "Strike",  "P/C",
                                                  "Multiplier", "Exchange", "Primary Exchange", "Currency"};
    for (int i = 0; i < 9; ++i) Quote(1, i, titles[i]);
    for (std::size_t i = 0; i < fields.size(); ++i) Field(fields[i], static_cast<int>(i) + 9);
    static constexpr std::string_view captions[] = {"Tape header for Ticker", "Link to ticker", "Tape header for Size",
                                                    "Tape location"};
    for (int i = 0; i < 4; ++i) Setting(1, i, captions[i]);
  }

  WorkbookBuilder& Instrument(const Contract& contract) {
    ++m_lastQuote;
    for (int i = 0; i < 9; ++i)
      if (!contract[static_cast<std::size_t>(i)].IsEmpty())
        Quote(m_lastQuote, i, contract[static_cast<std::size_t>(i)]);
    return *this;
  }

  /// Leaves a row of the quote sheet empty.
  WorkbookBuilder& Gap() {
    ++m_lastQuote;
    return *this;
  }

  WorkbookBuilder& Instruments(int count) {
    for (int i = 1; i <= count; ++i) Instrument(Stock("T" + std::to_string(i)));
    return *this;
  }

  /// A recorded tape; an empty text leaves its cell empty.
  WorkbookBuilder& Tape(std::string_view name, std::string_view link, std::string_view size,
                        std::string_view location) {
    ++m_lastTape;
    const std::string_view cells[] = {name, link, size, location};
    for (int i = 0; i < 4; ++i)
      if (!cells[i].empty()) Setting(m_lastTape, i, cells[i]);
    return *this;
  }

  /// Tapes of the last price of rows 2 and on, below each other on Sheet1.
  WorkbookBuilder& Tapes(int count) {
    for (int i = 0; i < count; ++i) {
      const auto top = std::to_string(i * 5 + 1);
      const auto bottom = std::to_string(i * 5 + 4);
      Tape("N" + std::to_string(i), "=TWS_Quotes!$N$" + std::to_string(i + 2), "", "Sheet1!A" + top + ":B" + bottom);
    }
    return *this;
  }

  workbook::Document& document() { return m_document; }

 private:
  static std::string Cell(int row, int column) {
    return std::string(1, static_cast<char>('A' + column)) + std::to_string(row);
  }
  void Quote(int row, int column, const Variant& value) { m_document.Set("TWS_Quotes", Cell(row, column), value); }
  void Setting(int row, int column, const Variant& value) {
    m_document.Set("Ticker_tape_settings", Cell(row, column), value);
  }
  void Field(const std::string& name, int column) {
    const std::string letter(1, static_cast<char>('A' + column));
    Quote(1, column, name.substr(4));
    m_document.AddName(name, "TWS_Quotes!$" + letter + ":$" + letter);
  }

  workbook::Document& m_document;
  int m_lastQuote = 1;
  int m_lastTape = 1;
};

}  // namespace pellora::test
