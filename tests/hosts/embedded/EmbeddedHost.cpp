#include <memory>

#include "tests/hosts/SheetHost.h"
#include "workbook/Host.h"

namespace pellora::test {
namespace {

/// The embedded workbook, in this program.
class EmbeddedHost : public SheetHost {
 public:
  std::string_view Name() const override { return "the embedded workbook"; }
  DispatchPtr Fresh() override {
    m_host = std::make_unique<workbook::Host>();
    return Application();
  }
  DispatchPtr Application() override { return m_host->Application(); }

 private:
  std::unique_ptr<workbook::Host> m_host = std::make_unique<workbook::Host>();
};

}  // namespace

SheetHost& TheHost() {
  static EmbeddedHost host;
  return host;
}

}  // namespace pellora::test
