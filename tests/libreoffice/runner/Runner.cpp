#include "tests/libreoffice/runner/Runner.h"

#include <gmock/gmock.h>

#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/awt/XRequestCallback.hpp>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <condition_variable>
#include <cppuhelper/factory.hxx>
#include <cppuhelper/implbase1.hxx>
#include <cstdlib>
#include <mutex>
#include <rtl/ref.hxx>
#include <string>
#include <vector>

namespace uno = com::sun::star::uno;
namespace awt = com::sun::star::awt;
namespace beans = com::sun::star::beans;

namespace pellora::test {
namespace {

uno::Reference<uno::XComponentContext> theOffice;

std::string Utf8(const rtl::OUString& text) { return rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8).getStr(); }

int RunTests(std::vector<std::string> words) {
  words.insert(words.begin(), "tests");
  std::vector<char*> pointers;
  for (auto& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  int count = static_cast<int>(words.size());
  ::testing::InitGoogleMock(&count, pointers.data());
  return RUN_ALL_TESTS();
}

/// Runs the tests where macros run: on the program's main thread.
class OnMainThread : public cppu::WeakImplHelper1<awt::XCallback> {
 public:
  explicit OnMainThread(std::vector<std::string> words) : m_words(std::move(words)) {}

  void SAL_CALL notify(const uno::Any&) override {
    int status = 1;
    try {
      status = RunTests(m_words);
    } catch (...) {
      // A failure outside of any test: the status tells.
    }
    const std::lock_guard lock(m_mutex);
    m_status = status;
    m_done = true;
    m_ended.notify_all();
  }

  int Wait() {
    std::unique_lock lock(m_mutex);
    m_ended.wait(lock, [&] { return m_done; });
    return m_status;
  }

 private:
  std::vector<std::string> m_words;
  std::mutex m_mutex;
  std::condition_variable m_ended;
  bool m_done = false;
  int m_status = 1;
};

/// Takes the arguments of a test program as values named "argument", and variables of the environment by their names;
/// answers the program's status.
class Runner : public cppu::WeakImplHelper1<com::sun::star::task::XJob> {
 public:
  uno::Any SAL_CALL execute(const uno::Sequence<beans::NamedValue>& arguments) override {
    std::vector<std::string> words;
    for (sal_Int32 i = 0; i < arguments.getLength(); ++i) {
      rtl::OUString value;
      arguments[i].Value >>= value;
      if (arguments[i].Name == "argument")
        words.push_back(Utf8(value));
      else
        ::setenv(Utf8(arguments[i].Name).c_str(), Utf8(value).c_str(), 1);
    }
    rtl::Reference<OnMainThread> task(new OnMainThread(std::move(words)));
    const uno::Reference<awt::XRequestCallback> later(
        theOffice->getServiceManager()->createInstanceWithContext("com.sun.star.awt.AsyncCallback", theOffice),
        uno::UNO_QUERY_THROW);
    later->addCallback(task.get(), uno::Any());
    return uno::Any(static_cast<sal_Int32>(task->Wait()));
  }
};

uno::Reference<uno::XInterface> SAL_CALL MakeRunner(const uno::Reference<uno::XComponentContext>& context) {
  theOffice = context;
  return static_cast<cppu::OWeakObject*>(new Runner);
}

}  // namespace

const uno::Reference<uno::XComponentContext>& Office() { return theOffice; }

}  // namespace pellora::test

extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char*, void*, void*) {
  const auto factory = cppu::createSingleComponentFactory(&pellora::test::MakeRunner, "pellora.test.Runner",
                                                          uno::Sequence<rtl::OUString>());
  factory->acquire();
  return factory.get();
}
