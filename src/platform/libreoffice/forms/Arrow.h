#pragma once

#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>

namespace pellora::libreoffice {

/// A triangle that points up or down, `side` pixels high and wide, clear around it. `colour` is red, green, blue from
/// the third byte down.
com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic> Arrow(
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context, int side, bool up,
    std::uint32_t colour);

}  // namespace pellora::libreoffice
