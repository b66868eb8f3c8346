#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/hosts/Book.h"

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

/// The sheet of the tapes' records.
inline constexpr std::string_view kSettings = "Ticker_tape_settings";

/// Fills a workbook in a few lines: "Sheet1" (active), "TWS_Quotes", "Ticker_tape_settings", and the names that lead to
/// them. Instruments and tapes go below each other from row 2.
class WorkbookBuilder {
 public:
  explicit WorkbookBuilder(const Book& book, const std::vector<std::string>& fields = kAllFields) : m_book(book) {
    m_book.AddSheet("TWS_Quotes");
    m_book.AddSheet("Ticker_tape_settings");
    m_book.AddName("TWS_Symbol", "TWS_Quotes!$A:$A");
    m_book.AddName("Tape_header_for_Ticker", "Ticker_tape_settings!$A$1");
    std::vector<Variant> titles = {"Ticker",     "Type",     "Expiry",           "Strike",  "P/C",
                                   "Multiplier", "Exchange", "Primary Exchange", "Currency"};
    for (const auto& field : fields) {
      const std::string letter(1, static_cast<char>('A' + titles.size()));
      m_book.AddName(field, "TWS_Quotes!$" + letter + ":$" + letter);
      titles.push_back(field.substr(4));
    }
    Row("TWS_Quotes", 1, titles);
    Row("Ticker_tape_settings", 1,
        {"Tape header for Ticker", "Link to ticker", "Tape header for Size", "Tape location"});
  }

  WorkbookBuilder& Instrument(const Contract& contract) {
    Row("TWS_Quotes", ++m_lastQuote, std::vector<Variant>(contract.begin(), contract.end()));
    return *this;
  }

  /// Leaves a row of the quote sheet empty.
  WorkbookBuilder& Gap() {
    ++m_lastQuote;
    return *this;
  }

  /// Stocks "T1", "T2" and so on, in one call to the spreadsheet.
  WorkbookBuilder& Instruments(int count) {
    if (count == 0) return *this;
    VariantArray rows(static_cast<std::size_t>(count), 9);
    for (int i = 0; i < count; ++i) Fill(rows, i, Stock("T" + std::to_string(i + 1)));
    m_book.SetBlock("TWS_Quotes", "A" + std::to_string(m_lastQuote + 1), rows);
    m_lastQuote += count;
    return *this;
  }

  /// A recorded tape; an empty text leaves its cell empty.
  WorkbookBuilder& Tape(std::string_view name, std::string_view link, std::string_view size,
                        std::string_view location) {
    Row("Ticker_tape_settings", ++m_lastTape, {name, link, size, location});
    return *this;
  }

  /// Tapes of the last price of rows 2 and on, below each other on Sheet1, in one call to the spreadsheet.
  WorkbookBuilder& Tapes(int count) {
    if (count == 0) return *this;
    VariantArray rows(static_cast<std::size_t>(count), 4);
    for (int i = 0; i < count; ++i) {
      const auto place = "Sheet1!A" + std::to_string(i * 5 + 1) + ":B" + std::to_string(i * 5 + 4);
      Fill(rows, i,
           std::array<Variant, 4>{"N" + std::to_string(i), "=TWS_Quotes!$N$" + std::to_string(i + 2), "", place});
    }
    m_book.SetBlock("Ticker_tape_settings", "A" + std::to_string(m_lastTape + 1), rows);
    m_lastTape += count;
    return *this;
  }

 private:
  template <class Values>
  static void Fill(VariantArray& rows, int row, const Values& values) {
    for (std::size_t i = 0; i < values.size(); ++i) rows.At(static_cast<std::size_t>(row), i) = values[i];
  }
  void Row(std::string_view sheet, int row, const std::vector<Variant>& values) {
    VariantArray rows(1, values.size());
    Fill(rows, 0, values);
    m_book.SetBlock(sheet, "A" + std::to_string(row), rows);
  }

  Book m_book;
  int m_lastQuote = 1;
  int m_lastTape = 1;
};

}  // namespace pellora::test
