#include "platform/libreoffice/uno/Documents.h"

#include <atomic>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/drawing/XDrawPages.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/theGlobalEventBroadcaster.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/CellProtection.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <cppuhelper/implbase1.hxx>

#include "platform/libreoffice/uno/Failure.h"
#include "platform/libreoffice/uno/Text.h"
#include "platform/libreoffice/uno/Values.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::XInterface;
using Model = Reference<css::frame::XModel>;
using Sheet = Reference<css::sheet::XSpreadsheet>;

constexpr int kMostLocks = 100;

std::atomic<std::uint32_t> g_closed{0};

/// Counts documents as they close. The program holds it to its end, so it outlives every object.
class Closings : public cppu::WeakImplHelper1<css::document::XDocumentEventListener> {
 public:
  void SAL_CALL documentEventOccured(const css::document::DocumentEvent& event) override {
    if (event.EventName == "OnUnload") ++g_closed;
  }
  void SAL_CALL disposing(const css::lang::EventObject&) override {}
};

bool Listen(const UnoDispatch::Context& context) {
  css::frame::theGlobalEventBroadcaster::get(context)->addDocumentEventListener(new Closings);
  return true;
}

std::vector<Model> OpenDocuments(const UnoDispatch::Context& context) {
  std::vector<Model> documents;
  const auto all = css::frame::Desktop::create(context)->getComponents()->createEnumeration();
  while (all->hasMoreElements()) {
    const Model model(all->nextElement(), UNO_QUERY);
    if (Reference<css::sheet::XSpreadsheetDocument>(model, UNO_QUERY).is()) documents.push_back(model);
  }
  return documents;
}

// The page of drawings of a sheet is one object for good, unlike the sheet's, which is made anew for each who asks. The
// interface is marked as an old one, yet no other leads there.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
Reference<XInterface> PageOf(const Sheet& sheet) {
  const Reference<css::drawing::XDrawPageSupplier> supplier(sheet, UNO_QUERY);
  return supplier.is() ? Reference<XInterface>(supplier->getDrawPage(), UNO_QUERY) : Reference<XInterface>();
}
#pragma GCC diagnostic pop

bool HasPage(const Model& model, const Reference<XInterface>& page, sal_Int32 index) {
  const Reference<css::drawing::XDrawPagesSupplier> supplier(model, UNO_QUERY);
  if (!supplier.is()) return false;
  const auto pages = supplier->getDrawPages();
  return index < pages->getCount() && Reference<XInterface>(pages->getByIndex(index), UNO_QUERY) == page;
}

Reference<XInterface> FirstArea(const Reference<XInterface>& range) {
  const Reference<css::sheet::XSheetCellRangeContainer> several(range, UNO_QUERY);
  if (!several.is()) return range;
  return Reference<XInterface>(several->getCount() > 0 ? several->getByIndex(0) : Any(), UNO_QUERY);
}

Sheet SheetOf(const Reference<XInterface>& range) {
  const Reference<css::sheet::XSheetCellRange> area(FirstArea(range), UNO_QUERY);
  return area.is() ? area->getSpreadsheet() : Sheet();
}

bool IsOpen(const Model& model, const UnoDispatch::Context& context) {
  for (const Model& open : OpenDocuments(context))
    if (open == model) return true;
  return false;
}

// Asks only what the program answers without harm when the document is gone.
bool IsAlive(const UnoDispatch& object) {
  auto& asked = const_cast<UnoDispatch&>(object);
  const Model document = object.session()->document;
  switch (object.type().Kind()) {
    case ObjectKind::Range: return SheetOf(NativeRange(asked)).is();
    case ObjectKind::Worksheet: {
      const Reference<css::container::XNamed> named(object.object(), UNO_QUERY);
      return named.is() && !named->getName().isEmpty();
    }
    default: break;
  }
  if (object.owner()) return IsAlive(*object.owner());
  // An application does not tell whose it is, and one of a document that is gone ends the program: after a document was
  // closed, one whose document is not known counts as gone.
  return document.is() && IsOpen(document, object.context());
}

// The session's own document is asked first: it nearly always is the one.
Model DocumentWith(const Sheet& sheet, const UnoDispatch& object) {
  const auto page = PageOf(sheet);
  const sal_Int32 index = Reference<css::sheet::XCellRangeAddressable>(sheet, UNO_QUERY)->getRangeAddress().Sheet;
  if (HasPage(object.session()->document, page, index)) return object.session()->document;
  for (const Model& model : OpenDocuments(object.context()))
    if (HasPage(model, page, index)) return model;
  return {};
}

// Without windows no document is the current one, though one may be the only one.
Reference<XInterface> ActiveDocument(const Reference<css::frame::XDesktop2>& desktop) {
  const Reference<XInterface> current(desktop->getCurrentComponent(), UNO_QUERY);
  if (current.is()) return current;
  const auto all = desktop->getComponents()->createEnumeration();
  const Reference<XInterface> first(all->hasMoreElements() ? all->nextElement() : Any(), UNO_QUERY);
  return all->hasMoreElements() ? Reference<XInterface>() : first;
}

rtl::OUString ActiveSheetName(const Reference<XInterface>& document) {
  const Model model(document, UNO_QUERY);
  const Reference<css::sheet::XSpreadsheetView> view(
      model.is() ? model->getCurrentController() : Reference<css::frame::XController>(), UNO_QUERY);
  const Reference<css::container::XNamed> sheet(view.is() ? view->getActiveSheet() : Sheet(), UNO_QUERY);
  return sheet.is() ? sheet->getName() : rtl::OUString();
}

const Reference<css::frame::XDesktop2>& DesktopOf(UnoDispatch& object) {
  auto& desktop = object.session()->active.desktop;
  if (!desktop.is()) desktop = css::frame::Desktop::create(object.context());
  return desktop;
}

[[noreturn]] void RefuseWrite(const char* reason) { Refuse(std::string("The cells cannot be written: ") + reason); }

bool IsReadOnly(const Model& document) {
  const Reference<css::frame::XStorable> file(document, UNO_QUERY);
  return file.is() && file->isReadonly();
}

// Cells of both kinds count as locked.
bool IsLocked(const Reference<XInterface>& range) {
  const Reference<css::beans::XPropertySet> properties(range, UNO_QUERY);
  css::util::CellProtection protection;
  if (!properties.is() || !(properties->getPropertyValue("CellProtection") >>= protection)) return true;
  return protection.IsLocked;
}

}  // namespace

std::uint32_t ClosedDocuments(const UnoDispatch::Context& context) {
  static const bool listening = Listen(context);
  return listening ? g_closed.load() : 0;
}

void CheckAlive(const UnoDispatch& object) {
  const std::uint32_t closed = ClosedDocuments(object.context());
  if (closed == object.seenClosings()) return;
  bool alive = false;
  try {
    alive = IsAlive(object);
  } catch (...) {
    // What cannot even say that it lives is gone.
  }
  if (!alive) RaiseDisconnected();
  object.seeClosings(closed);
}

Reference<XInterface> NativeRange(UnoDispatch& range) {
  if (range.type().Kind() != ObjectKind::Range) return {};
  return Reference<XInterface>(range.Raw("getcellrange"), UNO_QUERY);
}

css::table::CellRangeAddress PlaceOf(UnoDispatch& range) {
  const Reference<css::sheet::XCellRangeAddressable> area(FirstArea(NativeRange(range)), UNO_QUERY);
  if (!area.is()) RaiseDisconnected();
  return area->getRangeAddress();
}

Model DocumentOf(UnoDispatch& object) {
  const Sheet sheet = SheetOf(NativeRange(object));
  if (!sheet.is()) RaiseDisconnected();
  return DocumentWith(sheet, object);
}

Reference<XInterface> ActiveDocumentOf(UnoDispatch& object) { return ActiveDocument(DesktopOf(object)); }

std::shared_ptr<UnoDispatch> ActiveSheetOf(UnoDispatch& application) {
  auto& known = application.session()->active;
  const auto document = ActiveDocumentOf(application);
  if (document.is() && document == known.document && known.sheet.is()) {
    // A sheet that was renamed, moved or deleted since tells another name than the view does, or none.
    const rtl::OUString name = known.sheet->getName();
    if (!name.isEmpty() && name == ActiveSheetName(document))
      return std::make_shared<UnoDispatch>(known.sheet, application.session());
  }
  const auto sheet =
      std::dynamic_pointer_cast<UnoDispatch>(application.Plain("activesheet", CallKind::Get, {}).Object());
  if (!sheet) Refuse("No sheet is active");
  const Variant corner("A1");
  const Variant range = sheet->Plain("range", CallKind::Get, {&corner, 1});
  const auto shown = std::dynamic_pointer_cast<UnoDispatch>(ObjectIn(range));
  const bool same = shown && DocumentOf(*shown) == document;
  known.document = same ? document : Reference<XInterface>();
  known.sheet.set(sheet->object(), UNO_QUERY);
  return sheet;
}

bool NamesDeletedCells(UnoDispatch& application, std::string_view name) {
  const Reference<css::beans::XPropertySet> document(ActiveDocumentOf(application), UNO_QUERY);
  Reference<css::sheet::XNamedRanges> names;
  if (!document.is() || !(document->getPropertyValue("NamedRanges") >>= names)) return false;
  const rtl::OUString wanted = Wide(name);
  if (!names->hasByName(wanted)) return false;
  const Reference<css::sheet::XNamedRange> found(names->getByName(wanted), UNO_QUERY);
  return found.is() && found->getContent().indexOf("#REF!") >= 0;
}

ScreensKept::ScreensKept(const UnoDispatch::Context& context) {
  try {
    for (const Model& document : OpenDocuments(context))
      if (!document->hasControllersLocked()) m_shown.push_back(document);
  } catch (const css::uno::Exception&) {
    // The program ends: it has no screen to keep.
  }
}

ScreensKept::~ScreensKept() {
  for (const Model& document : m_shown) try {
      // Each switching off counts.
      for (int i = 0; i < kMostLocks && document->hasControllersLocked(); ++i) document->unlockControllers();
    } catch (const css::uno::Exception&) {
      // Closed meanwhile.
    }
}

void CheckWritable(UnoDispatch& range, bool contents) {
  const auto native = NativeRange(range);
  const Sheet sheet = SheetOf(native);
  if (!sheet.is()) RaiseDisconnected();
  if (IsReadOnly(DocumentWith(sheet, range))) RefuseWrite("the document is open for reading only");
  const Reference<css::util::XProtectable> guarded(sheet, UNO_QUERY);
  const bool guardedSheet = guarded.is() && guarded->isProtected();
  if (guardedSheet && (!contents || IsLocked(native))) RefuseWrite("the sheet is protected");
}

}  // namespace pellora::libreoffice
