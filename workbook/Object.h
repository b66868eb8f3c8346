#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "core/Convert.h"
#include "core/Dispatch.h"
#include "core/Error.h"
#include "core/Text.h"
#include "core/TextServices.h"
#include "workbook/Refusal.h"
#include "workbook/State.h"

namespace pellora::workbook {

/// The arguments of one call; one that is left out counts as absent wherever it stands.
class Arguments {
 public:
  explicit Arguments(std::span<const Variant> values) : m_values(values) {}
  std::size_t Count() const { return m_values.size(); }
  bool Has(std::size_t index) const { return index < m_values.size() && !m_values[index].Is(Variant::Type::Missing); }
  /// Raises 449 when it is absent.
  const Variant& At(std::size_t index) const {
    if (!Has(index)) throw Error(errors::ArgumentNotOptional);
    return m_values[index];
  }
  std::int32_t Long(std::size_t index) const { return ToLong(At(index)); }
  std::int32_t Long(std::size_t index, std::int32_t otherwise) const { return Has(index) ? Long(index) : otherwise; }
  bool Boolean(std::size_t index, bool otherwise) const { return Has(index) ? ToBoolean(At(index)) : otherwise; }
  std::string Text(std::size_t index) const { return ToText(At(index)); }
  /// The last one: the new value, where a property is set.
  const Variant& Last() const { return At(m_values.size() - 1); }

 private:
  std::span<const Variant> m_values;
};

/// One line of an object's table of members: name, how many arguments it takes at least and at most (the new value
/// of a property not counted), and what it does. `put` is null for what cannot be set.
template <class Self>
struct Member {
  std::string_view name;
  std::size_t least, most;
  Variant (*get)(Self&, const Arguments&);
  void (*put)(Self&, const Arguments&) = nullptr;
};

/// An object of the model. `Self` has a static `kName`, which prefixes its members in counts, and a static
/// `Members()`, its table. Reading a property and running a method are one thing, as in script languages.
template <class Self>
class ObjectOf : public Dispatch, public std::enable_shared_from_this<Self> {
 public:
  explicit ObjectOf(StatePtr state) : m_state(std::move(state)) {}

  Variant Invoke(std::string_view name, CallKind kind, std::span<const Variant> values) final {
    const Member<Self>* member = Find(name);
    if (!member) throw Error(errors::MemberNotSupported);
    m_state->Enter(Self::kName, member->name, kind);
    const bool put = kind == CallKind::Put || kind == CallKind::PutRef;
    if (put && !member->put) return PutInto(*member, values);
    const std::size_t extra = put ? 1 : 0;
    if (values.size() < member->least + extra || values.size() > member->most + extra)
      throw Error(errors::WrongArgumentCount);
    auto& self = static_cast<Self&>(*this);
    if (!put) return member->get(self, Arguments(values));
    member->put(self, Arguments(values));
    return {};
  }

  bool Has(std::string_view name) final { return Find(name) != nullptr; }

  Host::State& state() const { return *m_state; }
  const StatePtr& statePtr() const { return m_state; }

 private:
  // Scripts write `Range("A1") = 5` as the setting of a property with an argument: it goes to the object that the
  // property answers, as its default member.
  Variant PutInto(const Member<Self>& member, std::span<const Variant> values) {
    const std::size_t indexes = values.empty() ? 0 : values.size() - 1;
    if (indexes == 0 || indexes < member.least || indexes > member.most) throw Error(errors::MemberNotSupported);
    const Variant answer = member.get(static_cast<Self&>(*this), Arguments(values.first(indexes)));
    if (!answer.Is(Variant::Type::Object) || !answer.Object()) throw Error(errors::MemberNotSupported);
    return answer.Object()->Invoke("_Default", CallKind::Put, values.subspan(indexes));
  }

  static const Member<Self>* Find(std::string_view name) {
    for (const auto& member : Self::Members())
      if (EqualAsciiNoCase(member.name, name)) return &member;
    return nullptr;
  }

  StatePtr m_state;
};

inline Variant Wrap(DispatchPtr object) { return Variant(std::move(object)); }

}  // namespace pellora::workbook
