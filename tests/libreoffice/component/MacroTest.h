#pragma once

#include <gtest/gtest.h>

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/document/XEmbeddedScripts.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/script/provider/XScriptProviderSupplier.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/headless/Headless.h"
#include "platform/libreoffice/component/UnoPellora.h"
#include "platform/libreoffice/uno/Text.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::test {

/// A hidden spreadsheet whose Basic modules run without a question; closed unsaved at the end.
class MacroDocument {
 public:
  MacroDocument() {
    namespace uno = com::sun::star::uno;
    com::sun::star::beans::PropertyValue properties[2];
    properties[0].Name = "Hidden";
    properties[0].Value <<= true;
    properties[1].Name = "MacroExecutionMode";
    properties[1].Value <<= sal_Int16(4);
    const auto desktop = com::sun::star::frame::Desktop::create(Office());
    m_document = desktop->loadComponentFromURL("private:factory/scalc", "_blank", 0, {properties, 2});
  }
  ~MacroDocument() {
    const com::sun::star::uno::Reference<com::sun::star::util::XCloseable> open(m_document,
                                                                                com::sun::star::uno::UNO_QUERY);
    if (open.is()) open->close(true);
  }
  MacroDocument(const MacroDocument&) = delete;
  MacroDocument& operator=(const MacroDocument&) = delete;

  /// Runs "Function T(library)" of a module of this source, and answers what it answers.
  std::string Run(const std::string& source, const com::sun::star::uno::Any& library) {
    namespace uno = com::sun::star::uno;
    const rtl::OUString name = libreoffice::Wide("M" + std::to_string(++m_modules));
    Library()->insertByName(name, uno::Any(libreoffice::Wide(source)));
    const uno::Reference<com::sun::star::script::provider::XScriptProviderSupplier> supplier(m_document,
                                                                                             uno::UNO_QUERY_THROW);
    const auto script = supplier->getScriptProvider()->getScript("vnd.sun.star.script:Standard." + name +
                                                                 ".T?language=Basic&location=document");
    uno::Sequence<sal_Int16> positions;
    uno::Sequence<uno::Any> written;
    rtl::OUString answer;
    script->invoke({&library, 1}, positions, written) >>= answer;
    return libreoffice::Narrow(answer);
  }

 private:
  com::sun::star::uno::Reference<com::sun::star::container::XNameContainer> Library() {
    namespace uno = com::sun::star::uno;
    const uno::Reference<com::sun::star::document::XEmbeddedScripts> scripts(m_document, uno::UNO_QUERY_THROW);
    const uno::Reference<com::sun::star::script::XLibraryContainer> libraries(scripts->getBasicLibraries(),
                                                                              uno::UNO_QUERY_THROW);
    const rtl::OUString standard("Standard");
    if (!libraries->hasByName(standard)) scripts->getBasicLibraries()->createLibrary(standard);
    uno::Reference<com::sun::star::container::XNameContainer> library;
    libraries->getByName(standard) >>= library;
    return library;
  }

  com::sun::star::uno::Reference<com::sun::star::lang::XComponent> m_document;
  int m_modules = 0;
};

/// The two ways in which Basic reads a module.
enum class Basic { Plain, Vba };

/// A test of the object as macros use it: real Basic, a platform without a screen, and a scripted user.
class MacroTest : public testing::TestWithParam<Basic> {
 protected:
  MacroTest() : m_library(new libreoffice::UnoPellora(Office(), nullptr)) {}
  ~MacroTest() override { EXPECT_EQ(platform.user().Verify(), ""); }

  void AtForm(std::string_view name, std::function<void(headless::UserAtForm&)> part) {
    platform.user().ExpectForm(name, std::move(part));
  }

  /// What `T` is set to by the statements, in which the object is `library`.
  std::string Answer(const std::string& statements) {
    const std::string option = GetParam() == Basic::Vba ? "Option VBASupport 1\n" : "";
    return m_document.Run(option + "Function T(library)\n" + statements + "\nT = CStr(T)\nEnd Function\n",
                          com::sun::star::uno::Any(Self()));
  }

  /// The same, where a failure answers "number|text" in one line.
  std::string Failure(const std::string& statement) {
    const std::string answer = Answer("On Error Goto Failed\n" + statement + "\nT = \"no failure\"\n" +
                                      "Exit Function\nFailed: T = Err & \"|\" & Error$\n");
    std::string line;
    for (const char letter : answer) line += letter == '\n' ? ' ' : letter;
    return line;
  }

  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> Self() {
    return static_cast<cppu::OWeakObject*>(m_library.get());
  }

  headless::HeadlessPlatform platform;
  rtl::Reference<libreoffice::UnoPellora> m_library;
  MacroDocument m_document;
};

/// The arguments of `CreateNewProject`.
inline constexpr char kTenZeros[] = "0, 0, 0, 0, 0, 0, 0, 0, 0, 0";

inline std::string BasicName(const testing::TestParamInfo<Basic>& info) {
  return info.param == Basic::Vba ? "Vba" : "Plain";
}

}  // namespace pellora::test
