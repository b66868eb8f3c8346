#include <gtest/gtest.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <stdexcept>

#include "platform/libreoffice/uno/Application.h"
#include "tests/hosts/SheetHost.h"
#include "tests/libreoffice/runner/Runner.h"

namespace pellora::test {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

constexpr char kOnlySheet[] = "Sheet1";

constexpr HostLimit kLimits[] = {
    {"LoadFGChart.ALinkThatIsNoPlainAddressIsAskedForOncePerLoadHoweverManyRows",
     "a name of the workbook behind a sheet, =TWS_Quotes!Named, becomes the intersection of two unknown names"},
};

/// One spreadsheet of the office program, used again for every test: a new sheet takes the place of all others, which
/// brings back everything that a sheet has, in a twentieth of the time that another document takes. Closed after the
/// last test.
class OfficeHost : public SheetHost {
 public:
  std::string_view Name() const override { return "LibreOffice"; }
  DispatchPtr Fresh() override {
    m_application.reset();
    if (!m_document.is()) Open();
    Renew();
    m_application = libreoffice::ApplicationOf(m_document, Office());
    return m_application;
  }
  DispatchPtr Application() override { return m_application; }
  std::span<const HostLimit> Limits() const override { return kLimits; }

  void Close() {
    m_application.reset();
    const Reference<css::util::XCloseable> open(m_document, UNO_QUERY);
    m_document.clear();
    if (open.is()) open->close(true);
  }

 private:
  // Not opened hidden: the object model's active workbook is that of the active window, and there would be none.
  void Open() {
    const auto desktop = css::frame::Desktop::create(Office());
    m_document.set(desktop->loadComponentFromURL("private:factory/scalc", "_blank", 0, {}), UNO_QUERY_THROW);
    Reference<css::document::XUndoManagerSupplier>(m_document, UNO_QUERY_THROW)->getUndoManager()->lock();
  }

  void Renew() {
    while (m_document->hasControllersLocked()) m_document->unlockControllers();
    RemoveNames();
    const auto sheets = Reference<css::sheet::XSpreadsheetDocument>(m_document, UNO_QUERY_THROW)->getSheets();
    const auto old = sheets->getElementNames();
    const rtl::OUString added("a name that no test uses");
    sheets->insertNewByName(added, 0);
    for (sal_Int32 i = 0; i < old.getLength(); ++i) sheets->removeByName(old[i]);
    Reference<css::container::XNamed>(sheets->getByName(added), UNO_QUERY_THROW)->setName(kOnlySheet);
    SelectFirstCell(sheets->getByName(kOnlySheet));
  }

  void RemoveNames() {
    Reference<css::sheet::XNamedRanges> names;
    Reference<css::beans::XPropertySet>(m_document, UNO_QUERY_THROW)->getPropertyValue("NamedRanges") >>= names;
    const auto all = names->getElementNames();
    for (sal_Int32 i = 0; i < all.getLength(); ++i) names->removeByName(all[i]);
  }

  void SelectFirstCell(const css::uno::Any& sheet) {
    const Reference<css::sheet::XSpreadsheetView> view(m_document->getCurrentController(), UNO_QUERY_THROW);
    const Reference<css::sheet::XSpreadsheet> cells(sheet, UNO_QUERY_THROW);
    view->setActiveSheet(cells);
    Reference<css::view::XSelectionSupplier>(view, UNO_QUERY_THROW)
        ->select(css::uno::Any(cells->getCellByPosition(0, 0)));
  }

  Reference<css::frame::XModel> m_document;
  DispatchPtr m_application;
};

OfficeHost& TheOffice() {
  static OfficeHost host;
  return host;
}

/// The host outlives the office program's objects, and must hold none of them by then.
class ClosesItsDocument : public testing::Environment {
 public:
  void TearDown() override { TheOffice().Close(); }
};

[[maybe_unused]] const auto* const closing = testing::AddGlobalTestEnvironment(new ClosesItsDocument);

}  // namespace

SheetHost& TheHost() { return TheOffice(); }

}  // namespace pellora::test
