#include "workbook/tools/Sample.h"

#include <array>
#include <cmath>
#include <string>

#include "workbook/Area.h"
#include "workbook/Document.h"

namespace pellora::workbook {
namespace {

struct Instrument {
  const char *ticker, *type, *expiry;
  double strike;
  const char* right;
  int multiplier;
  const char *exchange, *primary, *currency;
  double price;
};

// Rows that lack something are meant: the dialogs list them and offer nothing for them.
constexpr std::array kInstruments = {
    Instrument{"QVX", "STK", "", 0, "", 0, "SMART", "NYSE", "USD", 41.27},
    Instrument{"ZORB", "STK", "", 0, "", 0, "SMART", "NYSE", "USD", 118.4},
    Instrument{"MLTN", "STK", "", 0, "", 0, "SMART", "NYSE", "USD", 9.035},
    Instrument{"Зарянка", "STK", "", 0, "", 0, "SMART", "", "EUR", 254.1},
    Instrument{"Größe", "STK", "", 0, "", 0, "SMART", "", "EUR", 77.5},
    Instrument{"凧", "STK", "", 0, "", 0, "SMART", "", "JPY", 3120},
    Instrument{"TIXO", "STK", "", 0, "", 0, "", "", "USD", 0},
    Instrument{"QVX", "OPT", "20270115", 40, "CALL", 100, "SMART", "", "USD", 3.15},
    Instrument{"QVX", "OPT", "20270115", 40, "PUT", 100, "SMART", "", "USD", 1.9},
    Instrument{"ZORB", "OPT", "20270319", 120, "CALL", 100, "SMART", "", "USD", 6.45},
    Instrument{"ZORB", "OPT", "20270319", 122.5, "PUT", 100, "SMART", "", "USD", 8.2},
    Instrument{},
    Instrument{"HQ", "FUT", "202703", 0, "", 50, "GLOBEX", "", "USD", 4802.25},
    Instrument{"HQ", "FUT", "202706", 0, "", 50, "GLOBEX", "", "USD", 4811.75},
    Instrument{"WRD", "FUT", "202703", 0, "", 1000, "GLOBEX", "", "USD", 71.08},
    Instrument{"WRD", "FUT", "", 0, "", 1000, "GLOBEX", "", "", 0},
    Instrument{"HQI", "IND", "", 0, "", 0, "GLOBEX", "", "USD", 4798.6},
    Instrument{"KLM9", "IND", "", 0, "", 0, "NYSE", "", "USD", 1203.44},
    Instrument{"HQ", "FOP", "202703", 4800, "CALL", 50, "GLOBEX", "", "USD", 96.5},
    Instrument{"HQ", "FOP", "202703", 4800, "PUT", 50, "GLOBEX", "", "USD", 88.25},
    Instrument{"WRD", "FOP", "202703", 72.5, "PUT", 1000, "GLOBEX", "", "USD", 2.31},
    Instrument{"EUR", "CASH", "", 0, "", 0, "IDEALPRO", "", "USD", 1.08425},
    Instrument{"GBP", "CASH", "", 0, "", 0, "IDEALPRO", "", "USD", 1.26915},
    Instrument{"USD", "CASH", "", 0, "", 0, "IDEALPRO", "", "JPY", 149.325},
    Instrument{"", "STK", "", 0, "", 0, "SMART", "", "USD", 0},
    Instrument{"YPSI", "STK", "", 0, "", 0, "SMART", "NYSE", "USD", 15.015},
};

constexpr std::array kContractHeaders = {"Ticker",     "Type",     "Expiry",           "Strike",  "P/C",
                                         "Multiplier", "Exchange", "Primary Exchange", "Currency"};

struct Field {
  const char *name, *header;
};
constexpr std::array kFields = {
    Field{"TWS_Bid_Price", "Bid"},     Field{"TWS_Bid_Size", "Bid size"}, Field{"TWS_Ask_Price", "Ask"},
    Field{"TWS_Ask_Size", "Ask size"}, Field{"TWS_Last_Price", "Last"},   Field{"TWS_Last_Size", "Last size"},
    Field{"TWS_High", "High"},         Field{"TWS_Low", "Low"},           Field{"TWS_Volume", "Volume"},
    Field{"TWS_Close", "Close"},
};

constexpr const char* kQuotes = "TWS_Quotes";
constexpr const char* kSettings = "Ticker_tape_settings";
constexpr int kHeaderColor = 15;
constexpr double kHeaderWidth = 12;

void PutText(Sheet& sheet, CellPlace place, const std::string& text) {
  if (!text.empty()) sheet.At(place).value = text;
}
void PutNumber(Sheet& sheet, CellPlace place, double number) {
  if (number != 0) sheet.At(place).value = number;
}

void PutHeader(Sheet& sheet, int column, const char* text) {
  Cell& cell = sheet.At({1, column});
  cell.value = text;
  cell.format.interior = kHeaderColor;
  cell.format.borders[4] = BorderLine{1, 2, -4105};
  sheet.columnWidths[column] = kHeaderWidth;
}

// A contract's months are numbers, its days dates, as users have both.
void PutExpiry(Sheet& sheet, CellPlace place, const std::string& expiry) {
  constexpr double kDay = 46402, kDayLater = 46465;
  constexpr std::size_t kDayLength = 8;
  if (expiry.size() == kDayLength)
    sheet.At(place).value = Variant::Date(expiry == "20270115" ? kDay : kDayLater);
  else if (!expiry.empty())
    sheet.At(place).value = std::stod(expiry);
}

// A figure as it is quoted: rates with five decimals, prices with two.
double Quoted(double figure) {
  const double steps = figure < 2 ? 1e5 : 100;
  return std::round(figure * steps) / steps;
}

void PutQuotes(Sheet& sheet, int row, double price) {
  if (price == 0) return;
  const double tick = price > 1000 ? 0.25 : price < 2 ? 0.00005 : 0.01;
  const double figures[] = {Quoted(price - tick),  12.0 + row,
                            Quoted(price + tick),  7.0 + row,
                            Quoted(price),         1.0 + row % 5,
                            Quoted(price * 1.015), Quoted(price * 0.985),
                            1000.0 * (row + 3),    Quoted(price * 0.9975)};
  for (int i = 0; i < static_cast<int>(kFields.size()); ++i) PutNumber(sheet, {row, 10 + i}, figures[i]);
}

void PutInstrument(Sheet& sheet, int row, const Instrument& one) {
  if (!one.ticker) return;
  PutText(sheet, {row, 1}, one.ticker);
  PutText(sheet, {row, 2}, one.type);
  PutExpiry(sheet, {row, 3}, one.expiry);
  PutNumber(sheet, {row, 4}, one.strike);
  PutText(sheet, {row, 5}, one.right);
  PutNumber(sheet, {row, 6}, one.multiplier);
  PutText(sheet, {row, 7}, one.exchange);
  PutText(sheet, {row, 8}, one.primary);
  PutText(sheet, {row, 9}, one.currency);
  PutQuotes(sheet, row, one.price);
}

Sheet& AddQuoteSheet(Document& document) {
  Sheet& sheet = document.AddSheet(kQuotes);
  int column = 0;
  for (const char* header : kContractHeaders) PutHeader(sheet, ++column, header);
  document.AddName("TWS_Symbol", "=TWS_Quotes!$A:$A");
  for (const auto& field : kFields) {
    PutHeader(sheet, ++column, field.header);
    const std::string letters = "$" + ColumnLetters(column);
    document.AddName(field.name, "=TWS_Quotes!" + letters + ":" + letters);
  }
  return sheet;
}

Sheet& AddSettingsSheet(Document& document) {
  Sheet& sheet = document.AddSheet(kSettings);
  int column = 0;
  for (const char* header : {"Tape header for Ticker", "Link to ticker", "Tape header for Size", "Tape location"})
    PutHeader(sheet, ++column, header);
  for (int i = 1; i <= column; ++i) sheet.columnWidths[i] = 2 * kHeaderWidth;
  document.AddName("Tape_header_for_Ticker", "=Ticker_tape_settings!$A$1");
  return sheet;
}

void Record(Sheet& settings, int row, const std::string& ticker, const std::string& link, const std::string& size,
            const std::string& location) {
  PutText(settings, {row, 1}, ticker);
  settings.At({row, 2}).formula = link;
  PutText(settings, {row, 3}, size);
  PutText(settings, {row, 4}, location);
  if (row % 2 == 0)
    for (int column = 1; column <= 4; ++column) settings.At({row, column}).format.interior = kHeaderColor;
}

// The header line and the frame of a recorded tape, as the library draws them.
void DrawTape(Sheet& sheet, const Area& area, std::initializer_list<const char*> headers) {
  constexpr BorderLine kFrame{5, 2, 16};
  int column = area.left;
  for (const char* header : headers) {
    sheet.columnWidths[column] = 10;
    sheet.At({area.top, column++}).value = header;
  }
  for (int row = area.top; row <= area.bottom; ++row) {
    sheet.At({row, area.left}).format.borders[2] = kFrame;
    sheet.At({row, area.right}).format.borders[5] = kFrame;
  }
  for (int i = area.left; i <= area.right; ++i) {
    sheet.At({area.top, i}).format.borders[3] = kFrame;
    sheet.At({area.bottom, i}).format.borders[4] = kFrame;
  }
}

}  // namespace

void MakeSample(Document& document) {
  Sheet& quotes = AddQuoteSheet(document);
  int row = 1;
  for (const auto& instrument : kInstruments) PutInstrument(quotes, ++row, instrument);
  Sheet& settings = AddSettingsSheet(document);
  Sheet& desk = document.AddSheet("Desk");
  document.AddSheet("My Sheet");
  Record(settings, 2, "QVX", "=TWS_Quotes!$N$2", "QVX", "Desk!B3:D22");
  DrawTape(desk, {3, 2, 22, 4}, {"Local Time", "QVX", "QVX"});
}

void MakeLarge(Document& document, int instruments, int tapes) {
  Sheet& quotes = AddQuoteSheet(document);
  for (int i = 0; i < instruments; ++i) {
    const std::string ticker = "T" + std::to_string(i + 1);
    Instrument one = kInstruments[0];
    one.ticker = ticker.c_str();
    one.price = 10 + i % 900;
    PutInstrument(quotes, i + 2, one);
  }
  Sheet& settings = AddSettingsSheet(document);
  document.AddSheet("Desk");
  for (int i = 0; i < tapes && instruments > 0; ++i) {
    constexpr int kHeight = 20, kAcross = 100;
    const int left = 2 + 4 * (i % kAcross), top = 3 + (kHeight + 1) * (i / kAcross);
    const std::string link = "=TWS_Quotes!$N$" + std::to_string(2 + i % instruments);
    Record(settings, i + 2, "T" + std::to_string(1 + i % instruments), link, "",
           "Desk!" + AreaText({top, left, top + kHeight - 1, left + 1}, false, false));
  }
}

}  // namespace pellora::workbook
