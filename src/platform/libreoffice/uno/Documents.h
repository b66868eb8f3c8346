#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/libreoffice/uno/UnoDispatch.h"

/// The native side of the object model's objects: documents and ranges of cells, for what the object model does not
/// tell.
namespace pellora::libreoffice {

/// How many documents were closed since the first call. An object made since then is alive without any look at it.
std::uint32_t ClosedDocuments(const UnoDispatch::Context& context);

/// Raises `kDisconnected` for a range, a sheet, a workbook or an application whose document was closed: the program
/// itself would crash on some of their members. Costs nothing while no document is closed.
void CheckAlive(const UnoDispatch& object);

/// The native range behind a range, the object with its properties; null for any other object.
com::sun::star::uno::Reference<com::sun::star::uno::XInterface> NativeRange(UnoDispatch& range);

/// Where a range lies, rows and columns from 0; its first area when it has several. Raises `kDisconnected` when it has
/// no sheet any more.
com::sun::star::table::CellRangeAddress PlaceOf(UnoDispatch& range);

/// The document of a range or a worksheet; null when none of the open ones has it.
com::sun::star::uno::Reference<com::sun::star::frame::XModel> DocumentOf(UnoDispatch& object);

/// The active document; null when there is none.
com::sun::star::uno::Reference<com::sun::star::uno::XInterface> ActiveDocumentOf(UnoDispatch& object);

/// The active sheet of the active document, as the object model has it.
std::shared_ptr<UnoDispatch> ActiveSheetOf(UnoDispatch& application);

/// True for a name of the active document whose cells were deleted: the program answers what stands in their place, or
/// cells of a sheet that is not there.
bool NamesDeletedCells(UnoDispatch& application, std::string_view name);

/// Switches the screen on again, at its end, for every spreadsheet that has it on at its beginning: the program does
/// not do so when a macro ends, as other spreadsheets do, and a routine that was broken off leaves it off.
class ScreensKept {
 public:
  explicit ScreensKept(const UnoDispatch::Context& context);
  ~ScreensKept();
  ScreensKept(const ScreensKept&) = delete;
  ScreensKept& operator=(const ScreensKept&) = delete;

 private:
  std::vector<com::sun::star::uno::Reference<com::sun::star::frame::XModel>> m_shown;
};

/// Raises 1004 when cells of the range cannot be written: the program drops such a write without a word, or worse,
/// makes it. `contents` for values and formulas, which an unlocked cell of a protected sheet takes.
void CheckWritable(UnoDispatch& range, bool contents);

}  // namespace pellora::libreoffice
