#pragma once

#include <vector>

#include "platform/windows/ole/Owners.h"

namespace pellora::windows {

/// The arguments of a late-bound call, made to fit the called member. Type information calls a member only with
/// variables of exactly its types; script engines pass variants by reference, and literals. An argument that does not
/// fit is converted into a temporary, and what the member left there is put back into the caller's variable. Lives for
/// one call, and the caller's parameters outlive it.
class CallArguments {
 public:
  /// `types` are the types of the member's arguments in their written order, and outlive this.
  explicit CallArguments(const std::vector<VARTYPE>& types);

  /// Reads what the caller passed, by place or by name (the ids of names are the places). Nothing of the caller's is
  /// changed. DISP_E_TYPEMISMATCH for what does not convert, DISP_E_BADPARAMCOUNT for too many, DISP_E_PARAMNOTOPTIONAL
  /// for one left out, DISP_E_PARAMNOTFOUND for an unknown name; `badArgument`, when not null, then tells its index in
  /// the caller's array for the first of these.
  HRESULT Take(const DISPPARAMS& parameters, UINT* badArgument);

  /// The arguments, last first, for a call with the member's own types.
  VARIANTARG* data() { return m_values.data(); }
  UINT size() const { return static_cast<UINT>(m_values.size()); }

  /// Puts the temporaries back into the caller's variables: a variant takes the member's type, a variable of another
  /// type what converts to it, and keeps its value where that does not convert.
  void WriteBack();
  /// The same for those alone that the member has changed: a call that failed leaves the others as they are.
  void WriteBackChanged();

 private:
  HRESULT Fit(VARIANTARG& given, VARTYPE type, std::size_t slot);

  struct Borrowed {
    VARIANTARG* variable;
    std::size_t slot;
    ole::OleVariant before;
  };

  const std::vector<VARTYPE>& m_types;
  std::vector<VARIANTARG> m_values;
  std::vector<ole::OleVariant> m_temporaries;
  std::vector<Borrowed> m_borrowed;
};

}  // namespace pellora::windows
