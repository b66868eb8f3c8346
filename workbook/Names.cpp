#include <algorithm>
#include <array>

#include "workbook/Objects.h"
#include "workbook/RangeObject.h"

namespace pellora::workbook {
namespace {

using A = const Arguments&;

Variant NameAt(const StatePtr& state, const Variant& index) {
  const auto& names = state->document.names;
  if (index.Is(Variant::Type::String)) {
    if (!state->document.FindName(index.String())) Refuse();
    return Wrap(std::make_shared<NameObject>(state, index.String()));
  }
  const std::int32_t number = ToLong(index);
  if (number < 1 || static_cast<std::size_t>(number) > names.size()) Refuse();
  return Wrap(std::make_shared<NameObject>(state, names[static_cast<std::size_t>(number) - 1].first));
}

std::string MeaningOf(const Variant& value) {
  if (!value.Is(Variant::Type::Object)) return ToText(value);
  const auto range = AsRange(value);
  std::string text;
  for (const Area& area : range->areas())
    text += (text.empty() ? "=" : ",") + SheetNameInReference(range->sheet()->name) + "!" + AreaText(area);
  return text;
}

Variant AddName(const StatePtr& state, const std::string& name, const Variant& refersTo) {
  if (!IsNameText(name)) Refuse("The name that you entered is not valid.");
  state->document.AddName(name, MeaningOf(refersTo));
  return NameAt(state, name);
}

std::string RefersTo(const NameObject& name) {
  const std::string* meaning = name.state().document.FindName(name.name());
  if (!meaning) Refuse();
  return meaning->starts_with('=') ? *meaning : "=" + *meaning;
}

Variant Target(const NameObject& name) {
  const Host::State& state = name.state();
  const auto reference = Resolve(state.document, state.ActiveSheet(), RefersTo(name).substr(1));
  if (!reference) Refuse();
  return WrapRange(name.statePtr(), *reference);
}

void Remove(Host::State& state, const std::string& name) {
  std::erase_if(state.document.names, [&](const auto& entry) { return EqualNoCase(entry.first, name); });
}

constexpr std::array kNames = {
    Member<NamesObject>{"Item", 1, 1, [](NamesObject& o, A a) { return NameAt(o.statePtr(), a.At(0)); }},
    Member<NamesObject>{"_Default", 1, 1, [](NamesObject& o, A a) { return NameAt(o.statePtr(), a.At(0)); }},
    Member<NamesObject>{"Add", 2, 2, [](NamesObject& o, A a) { return AddName(o.statePtr(), a.Text(0), a.At(1)); }},
    Member<NamesObject>{
        "Count", 0, 0,
        [](NamesObject& o, A) { return Variant(static_cast<std::int32_t>(o.state().document.names.size())); }},
};

constexpr std::array kOneName = {
    Member<NameObject>{"Name", 0, 0, [](NameObject& o, A) { return Variant(o.name()); }},
    Member<NameObject>{"RefersTo", 0, 0, [](NameObject& o, A) { return Variant(RefersTo(o)); },
                       [](NameObject& o, A a) { o.state().document.AddName(o.name(), MeaningOf(a.Last())); }},
    Member<NameObject>{"_Default", 0, 0, [](NameObject& o, A) { return Variant(RefersTo(o)); }},
    Member<NameObject>{"RefersToRange", 0, 0, [](NameObject& o, A) { return Target(o); }},
    Member<NameObject>{"Delete", 0, 0, [](NameObject& o, A) { return Remove(o.state(), o.name()), Variant(); }},
};

}  // namespace

std::span<const Member<NamesObject>> NamesObject::Members() { return kNames; }
std::span<const Member<NameObject>> NameObject::Members() { return kOneName; }

}  // namespace pellora::workbook
