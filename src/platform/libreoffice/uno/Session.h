#pragma once

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <memory>
#include <vector>

namespace pellora::libreoffice {

/// What the objects that come from one another have in common.
struct Session {
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context;
  /// The document, where it is known from the beginning.
  com::sun::star::uno::Reference<com::sun::star::frame::XModel> document;
  /// What the objects need and do not hold themselves: the object model forgets its document when its globals go.
  com::sun::star::uno::Reference<com::sun::star::uno::XInterface> globals;

  /// The object model's object for the active sheet, as it was last asked for. The program takes longer to find it than
  /// for all the rest of a call.
  struct ActiveSheet {
    com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> desktop;
    com::sun::star::uno::Reference<com::sun::star::uno::XInterface> document;
    com::sun::star::uno::Reference<com::sun::star::container::XNamed> sheet;
  };
  mutable ActiveSheet active = {};

  /// The cells that were selected on a sheet when it was left for another one.
  struct LeftSheet {
    com::sun::star::uno::Reference<com::sun::star::frame::XController> controller;
    rtl::OUString sheet;
    com::sun::star::uno::Reference<com::sun::star::sheet::XCellRangesQuery> cells;
  };
  mutable std::vector<LeftSheet> left = {};
};

using SessionPtr = std::shared_ptr<const Session>;

}  // namespace pellora::libreoffice
