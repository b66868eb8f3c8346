#include "platform/libreoffice/component/OfficeServices.h"

#include <gtest/gtest.h>

#include <chrono>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/configuration/theDefaultProvider.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/libreoffice/uno/Text.h"
#include "tests/libreoffice/runner/Runner.h"
#include "tests/libreoffice/services/TemporaryFolder.h"

namespace pellora::test {
namespace {

namespace uno = com::sun::star::uno;

/// The office program's locale setting, put back at the end; "" is the system's.
class LocaleSetting {
 public:
  explicit LocaleSetting(std::string_view tag) { Put(libreoffice::Wide(tag)); }
  ~LocaleSetting() { Put({}); }
  LocaleSetting(const LocaleSetting&) = delete;
  LocaleSetting& operator=(const LocaleSetting&) = delete;

 private:
  static void Put(const rtl::OUString& tag) {
    com::sun::star::beans::PropertyValue path;
    path.Name = "nodepath";
    path.Value <<= rtl::OUString("/org.openoffice.Setup/L10N");
    const uno::Any argument(path);
    const uno::Reference<com::sun::star::beans::XPropertySet> settings(
        com::sun::star::configuration::theDefaultProvider::get(Office())->createInstanceWithArguments(
            "com.sun.star.configuration.ConfigurationUpdateAccess", {&argument, 1}),
        uno::UNO_QUERY_THROW);
    settings->setPropertyValue("ooSetupSystemLocale", uno::Any(tag));
    uno::Reference<com::sun::star::util::XChangesBatch>(settings, uno::UNO_QUERY_THROW)->commitChanges();
  }
};

/// What the library asks of a locale.
struct Expected {
  const char* tag;
  const char* decimal;
  const char* group;
  const char* date;
  const char* time;
  const char* currency;
};

TEST(OfficeLocale, FollowsTheSettingOfTheProgram) {
  const Expected locales[] = {
      {"en-US", ".", ",", "M/D/YYYY", "HH:MM:SS AM/PM", "$"},
      {"de-DE", ",", ".", "DD.MM.YYYY", "HH:MM:SS", "€"},
      {"fr-FR", ",", "\u00a0", "DD/MM/YYYY", "HH:MM:SS", "€"},
      {"ja-JP", ".", ",", "YYYY/M/D", "HH:MM:SS", "￥"},
  };
  for (const auto& [tag, decimal, group, date, time, currency] : locales) {
    const LocaleSetting setting(tag);
    const auto facts = libreoffice::OfficeLocale(Office());
    EXPECT_EQ(facts.language, tag);
    EXPECT_EQ(facts.decimalSeparator, decimal) << tag;
    EXPECT_EQ(facts.groupSeparator, group) << tag;
    EXPECT_EQ(facts.shortDatePattern, date) << tag;
    EXPECT_EQ(facts.longTimePattern, time) << tag;
    EXPECT_EQ(facts.currencies.front(), currency) << tag;
  }
}

TEST(OfficeLocale, ReadsDatesInTheOrderOfTheLanguage) {
  const LocaleSetting german("de-DE");
  EXPECT_EQ(libreoffice::OfficeLocale(Office()).dateOrder, libreoffice::DateOrder::DayMonthYear);
}

/// The folder put before all others that programs are looked for in, for the office program and what it starts.
class ProgramsFirstIn {
 public:
  explicit ProgramsFirstIn(const std::string& folder) : m_before(std::getenv("PATH")) {
    setenv("PATH", (folder + ":" + m_before).c_str(), 1);
  }
  ~ProgramsFirstIn() { setenv("PATH", m_before.c_str(), 1); }
  ProgramsFirstIn(const ProgramsFirstIn&) = delete;
  ProgramsFirstIn& operator=(const ProgramsFirstIn&) = delete;

 private:
  std::string m_before;
};

// It is started beside the program, which does not wait for it.
bool IsMade(const std::string& file) {
  for (int i = 0; i < 500 && !std::filesystem::exists(file); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return std::filesystem::exists(file);
}

TEST(OpenLink, ReachesTheDesktopAsItIs) {
  const libreoffice::TemporaryFolder folder;
  // In place of the desktop's program for links.
  const std::string asked = folder.Path("asked"), part = folder.Path("part");
  folder.PutProgram("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >" + part + "\nmv " + part + " " + asked + "\n");
  const ProgramsFirstIn path(folder.Path());
  const std::string link = "mailto:help@example.com?subject=Error%20in%20a%20macro&body=Line%201%0D%0ALine%202%20'x'";
  EXPECT_TRUE(libreoffice::OpenLink(link, Office()));
  EXPECT_TRUE(IsMade(asked));
  EXPECT_EQ(folder.Content("asked"), link);
}

TEST(OpenLink, IsToldWhenALinkCannotBeOpened) { EXPECT_FALSE(libreoffice::OpenLink("no link at all", Office())); }

}  // namespace
}  // namespace pellora::test
