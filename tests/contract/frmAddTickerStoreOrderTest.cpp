// In which order the contract dialog reads and writes its settings, as the registry sees it.

#include "tests/contract/ContractDialog.h"

namespace pellora {
namespace {

using tests::Names;
using tests::UserAtForm;

/// A registry over another one that notes the names of the choices read and written.
class NotingRegistry : public Registry {
 public:
  explicit NotingRegistry(Registry& inner) : m_inner(inner) {}
  std::int32_t SetValue(std::int32_t root, std::string_view path, std::string_view name,
                        const RegistryValue& value) override {
    Note(written, path, name);
    return m_inner.SetValue(root, path, name, value);
  }
  std::optional<RegistryValue> QueryValue(std::int32_t root, std::string_view path, std::string_view name) override {
    Note(read, path, name);
    return m_inner.QueryValue(root, path, name);
  }
  std::int32_t EnumerateValues(std::int32_t root, std::string_view path, std::vector<std::string>& names) override {
    return m_inner.EnumerateValues(root, path, names);
  }
  std::int32_t DeleteKey(std::int32_t root, std::string_view path) override { return m_inner.DeleteKey(root, path); }

  Names read, written;

 private:
  static void Note(Names& names, std::string_view path, std::string_view name) {
    if (path == "Software\\CORVANE\\Vantix\\Settings\\frmSettings") names.emplace_back(name);
  }
  Registry& m_inner;
};

class StoreOrder : public tests::ContractDialog {
 protected:
  StoreOrder() { mGlobal::InstallPlatform(&watched); }
  ~StoreOrder() override { mGlobal::InstallPlatform(&platform.platform); }

  /// The settings written by an insert of that type, in order.
  Names Written(int index) {
    Show(index, [&](UserAtForm& hands) {
      hands.TypeHere("XYZ");
      registry.written.clear();
      hands.Click("ButInsert");
    });
    return registry.written;
  }

  NotingRegistry registry{platform.registry};
  Platform watched{platform.toolkit,  registry, platform.shell, platform.clock, platform.eventLog,
                   platform.logFiles, {}};
};

TEST_F(StoreOrder, LoadParamertReadsTheChosenCurrencyOnceAndEachChoiceBeforeItsListButRightsAfter) {
  Show(0, tests::Cancel);
  EXPECT_EQ(registry.read, (Names{"ComCurencyText",   "ComCurency",          "ComCurency",      "ComCurency",
                                  "ComCurency",       "ComCurency",          "ComCurency",      "ComSTKExchangeText",
                                  "ComSTKExchange",   "ComOPTExchangeText",  "ComOPTExchange",  "ComINDExchangeText",
                                  "ComINDExchange",   "ComFOPExchangeText",  "ComFOPExchange",  "ComFUTExchangeText",
                                  "ComFUTExchange",   "ComCASHExchangeText", "ComCASHExchange", "txtPrimaryExchange",
                                  "txtOPTExpiry",     "txtFUTExpiry",        "txtFOPExpiry",    "txtOPTMultiplier",
                                  "txtFUTMultiplier", "ComOPTRight",         "ComOPTRightText", "ComFOPRight",
                                  "ComFOPRightText"}));
}

TEST_F(StoreOrder, LoadParamertFillsTheCurrencyListsFromCashToOption) {
  Names filled;
  frmAddTicker dialog(platform.toolkit);
  dialog.frmAppSettings(mGlobal::AppSettings);
  for (auto* list : {&dialog.ComSTKCurency, &dialog.ComOPTCurency, &dialog.ComFUTCurency, &dialog.ComIndCurency,
                     &dialog.ComFOPCurency, &dialog.ComCASHCurency})
    list->Change = [&filled, list] { filled.push_back(list->Name()); };
  dialog.LoadParamert();
  EXPECT_EQ(filled, (Names{"ComCASHCurency", "ComSTKCurency", "ComFOPCurency", "ComFUTCurency", "ComIndCurency",
                           "ComOPTCurency"}));
}

TEST_F(StoreOrder, OpeningWritesNothing) {
  Show(0, tests::Cancel);
  EXPECT_EQ(registry.written, Names{});
}

TEST_F(StoreOrder, SaveParamertWritesTheCurrencyPairThenTheExchangePairThenTheTypesFields) {
  EXPECT_EQ(Written(kStock),
            (Names{"ComCurencyText", "ComCurency", "ComSTKExchangeText", "ComSTKExchange", "txtPrimaryExchange"}));
  EXPECT_EQ(Written(kOption), (Names{"ComCurencyText", "ComCurency", "ComOPTExchangeText", "ComOPTExchange",
                                     "txtOPTExpiry", "ComOPTRightText", "txtOPTMultiplier"}));
  EXPECT_EQ(Written(kFutures), (Names{"ComCurencyText", "ComCurency", "ComFUTExchangeText", "ComFUTExchange",
                                      "txtFUTExpiry", "txtFUTMultiplier"}));
  EXPECT_EQ(Written(kIndex), (Names{"ComCurencyText", "ComCurency", "ComINDExchangeText", "ComINDExchange"}));
  EXPECT_EQ(Written(kFutOpt), (Names{"ComCurencyText", "ComCurency", "ComFOPExchangeText", "ComFOPExchange",
                                     "txtFOPExpiry", "ComFOPRightText"}));
  EXPECT_EQ(Written(kCash), (Names{"ComCurencyText", "ComCurency", "ComCASHExchangeText", "ComCASHExchange"}));
}

}  // namespace
}  // namespace pellora
