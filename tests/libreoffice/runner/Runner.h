#pragma once

#include <com/sun/star/uno/XComponentContext.hpp>

namespace pellora::test {

/// The office program's component context, for the tests that run inside it.
const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& Office();

}  // namespace pellora::test
