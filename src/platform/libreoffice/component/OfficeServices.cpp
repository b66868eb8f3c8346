#include "platform/libreoffice/component/OfficeServices.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/configuration/theDefaultProvider.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/i18n/LocaleData2.hpp>
#include <com/sun/star/i18n/NumberFormatIndex.hpp>
#include <com/sun/star/system/SystemShellExecute.hpp>
#include <com/sun/star/system/SystemShellExecuteFlags.hpp>
#include <optional>
#include <vector>

#include "platform/libreoffice/uno/Text.h"

namespace pellora::libreoffice {
namespace {

namespace uno = com::sun::star::uno;
namespace i18n = com::sun::star::i18n;
namespace sys = com::sun::star::system;
using com::sun::star::beans::PropertyValue;
using com::sun::star::lang::Locale;
using Context = uno::Reference<uno::XComponentContext>;
using LocaleData = uno::Reference<i18n::XLocaleData5>;

// The setting is empty as long as the user wants the system's.
rtl::OUString LocaleSetting(const Context& context) {
  PropertyValue path;
  path.Name = "nodepath";
  path.Value <<= rtl::OUString("/org.openoffice.Setup/L10N");
  const uno::Any argument(path);
  const uno::Reference<com::sun::star::container::XNameAccess> settings(
      com::sun::star::configuration::theDefaultProvider::get(context)->createInstanceWithArguments(
          "com.sun.star.configuration.ConfigurationAccess", {&argument, 1}),
      uno::UNO_QUERY_THROW);
  rtl::OUString tag;
  settings->getByName("ooSetupSystemLocale") >>= tag;
  return tag;
}

// A locale without a language is the system's.
Locale LocaleOf(const rtl::OUString& tag) {
  Locale locale;
  locale.Language = tag.getToken(0, '-');
  const sal_Int32 last = tag.lastIndexOf('-');
  if (last == tag.indexOf('-')) {
    if (last > 0) locale.Country = tag.copy(last + 1);
    return locale;
  }
  // With a script or a variant, the whole tag says it.
  locale.Language = "qlt";
  locale.Country = tag.copy(last + 1);
  locale.Variant = tag;
  return locale;
}

std::optional<i18n::FormatElement> Format(const LocaleData& data, const Locale& locale, sal_Int16 index) {
  for (const i18n::FormatElement& format : data->getAllFormats(locale))
    if (format.formatIndex == index) return format;
  return std::nullopt;
}

// How often the letters of each part are repeated: "DD.MM.YYYY" gives 2, 2, 4, in whatever letters the language has.
std::vector<int> Widths(const std::string& code) {
  std::vector<int> widths;
  char last = 0;
  bool skipping = false;
  for (const char letter : code) {
    if (letter == '[') skipping = true;
    const bool counts = !skipping && ((letter >= 'A' && letter <= 'Z') || (letter & 0x80));
    if (counts && letter == last) ++widths.back();
    if (counts && letter != last) widths.push_back(1);
    if (letter == ']') skipping = false;
    last = counts ? letter : 0;
  }
  return widths;
}

// The first pattern in which dates are understood, as "D.M.Y": the order without the language's own letters.
std::string AcceptedDate(const LocaleData& data, const Locale& locale) {
  for (const rtl::OUString& pattern : data->getDateAcceptancePatterns(locale)) {
    const std::string text = Narrow(pattern);
    if (text.find('D') != text.npos && text.find('M') != text.npos && text.find('Y') != text.npos) return text;
  }
  return {};
}

void TakeDates(LocaleFacts& facts, const LocaleData& data, const Locale& locale) {
  const std::string accepted = AcceptedDate(data, locale);
  if (accepted.empty()) return;
  const std::size_t day = accepted.find('D'), month = accepted.find('M'), year = accepted.find('Y');
  facts.dateOrder = year < day    ? DateOrder::YearMonthDay
                    : day < month ? DateOrder::DayMonthYear
                                  : DateOrder::MonthDayYear;
  const auto format = Format(data, locale, i18n::NumberFormatIndex::DATE_SYSTEM_SHORT);
  const auto widths = format ? Widths(Narrow(format->formatCode)) : std::vector<int>();
  std::string pattern;
  for (std::size_t at = 0, part = 0; at < accepted.size(); ++at) {
    const char letter = accepted[at];
    const bool isPart = letter == 'D' || letter == 'M' || letter == 'Y';
    const int width = letter == 'Y' ? 4 : part < widths.size() && widths[part] > 1 ? 2 : 1;
    pattern.append(static_cast<std::size_t>(isPart ? width : 1), letter);
    part += isPart;
  }
  facts.shortDatePattern = pattern;
}

void TakeTimes(LocaleFacts& facts, const LocaleData& data, const Locale& locale) {
  const auto twelve = Format(data, locale, i18n::NumberFormatIndex::TIME_HHMMSSAMPM);
  const auto plain = Format(data, locale, i18n::NumberFormatIndex::TIME_HHMMSS);
  const auto widths = plain ? Widths(Narrow(plain->formatCode)) : std::vector<int>();
  const std::string& mark = facts.timeSeparator.empty() ? ":" : facts.timeSeparator;
  const bool isWide = widths.empty() || widths.front() > 1;
  facts.longTimePattern = (isWide ? "HH" : "H") + mark + "MM" + mark + "SS";
  if (twelve && twelve->isDefault) facts.longTimePattern += " AM/PM";
}

void TakeCurrencies(LocaleFacts& facts, const LocaleData& data, const Locale& locale) {
  facts.currencies.clear();
  for (const i18n::Currency2& currency : data->getAllCurrencies2(locale)) {
    if (!currency.Default) continue;
    facts.currencies.push_back(Narrow(currency.Symbol));
    facts.currencies.push_back(Narrow(currency.BankSymbol));
  }
}

}  // namespace

LocaleFacts OfficeLocale(const Context& context) {
  LocaleFacts facts;
  try {
    const rtl::OUString tag = LocaleSetting(context);
    const Locale locale = LocaleOf(tag);
    const LocaleData data = i18n::LocaleData2::create(context);
    const auto item = data->getLocaleItem2(locale);
    facts.language = Narrow(tag);
    facts.decimalSeparator = Narrow(item.decimalSeparator);
    facts.groupSeparator = Narrow(item.thousandSeparator);
    facts.dateSeparator = Narrow(item.dateSeparator);
    facts.timeSeparator = Narrow(item.timeSeparator);
    facts.am = Narrow(item.timeAM);
    facts.pm = Narrow(item.timePM);
    TakeDates(facts, data, locale);
    TakeTimes(facts, data, locale);
    TakeCurrencies(facts, data, locale);
  } catch (const uno::Exception&) {
    // Without its locale data the program still has numbers and dates: what was found so far counts.
  }
  return facts;
}

bool OpenLink(const std::string& link, const Context& context) {
  try {
    sys::SystemShellExecute::create(context)->execute(Wide(link), {}, sys::SystemShellExecuteFlags::URIS_ONLY);
    return true;
  } catch (const uno::Exception&) {
    return false;
  }
}

}  // namespace pellora::libreoffice
