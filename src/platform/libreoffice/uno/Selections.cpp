#include "platform/libreoffice/uno/Selections.h"

#include <algorithm>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/sheet/XViewPane.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <utility>

#include "platform/libreoffice/uno/Documents.h"

namespace pellora::libreoffice {
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using LeftSheet = Session::LeftSheet;

/// The window of the active document, and the sheet that it shows.
struct View {
  explicit View(UnoDispatch& object) {
    const Reference<css::frame::XModel> model(ActiveDocumentOf(object), UNO_QUERY_THROW);
    controller.set(model->getCurrentController(), UNO_QUERY_THROW);
    selection.set(controller, UNO_QUERY_THROW);
    const Reference<css::sheet::XSpreadsheetView> sheets(controller, UNO_QUERY_THROW);
    sheet = Reference<css::container::XNamed>(sheets->getActiveSheet(), UNO_QUERY_THROW)->getName();
  }

  Reference<css::frame::XController> controller;
  Reference<css::view::XSelectionSupplier> selection;
  rtl::OUString sheet;
};

LeftSheet Taken(std::vector<LeftSheet>& all, const View& view) {
  const auto found = std::find_if(all.begin(), all.end(), [&](const LeftSheet& one) {
    return one.controller == view.controller && one.sheet == view.sheet;
  });
  if (found == all.end()) return {};
  LeftSheet taken = *found;
  all.erase(found);
  return taken;
}

bool IsOneCell(const css::uno::Any& selection) { return Reference<css::table::XCell>(selection, UNO_QUERY).is(); }

bool Holds(const Reference<css::sheet::XCellRangesQuery>& cells, const css::uno::Any& cursor) {
  const Reference<css::sheet::XCellRangeAddressable> place(cursor, UNO_QUERY);
  return IsOneCell(cursor) && place.is() &&
         cells->queryIntersection(place->getRangeAddress())->getRangeAddresses().getLength() > 0;
}

// Selecting scrolls to what is selected.
void SelectInPlace(const View& view, const LeftSheet& left) {
  const Reference<css::sheet::XViewPane> pane(view.controller, UNO_QUERY_THROW);
  const auto column = pane->getFirstVisibleColumn(), row = pane->getFirstVisibleRow();
  view.selection->select(css::uno::Any(left.cells));
  if (pane->getFirstVisibleColumn() != column) pane->setFirstVisibleColumn(column);
  if (pane->getFirstVisibleRow() != row) pane->setFirstVisibleRow(row);
}

}  // namespace

void RememberSelection(UnoDispatch& object) {
  try {
    const View view(object);
    auto& all = object.session()->left;
    Taken(all, view);
    const auto selected = view.selection->getSelection();
    const Reference<css::sheet::XCellRangesQuery> cells(selected, UNO_QUERY);
    if (cells.is() && !IsOneCell(selected)) all.push_back({view.controller, view.sheet, cells});
  } catch (const css::uno::Exception&) {
    // No window, so nobody has selected anything.
  }
}

void RestoreSelection(UnoDispatch& object) {
  try {
    const View view(object);
    const LeftSheet left = Taken(object.session()->left, view);
    if (left.cells.is() && Holds(left.cells, view.selection->getSelection())) SelectInPlace(view, left);
  } catch (const css::uno::Exception&) {
    // The cells, or the window, are gone.
  }
}

}  // namespace pellora::libreoffice
