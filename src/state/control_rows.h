// SPDX-License-Identifier: MIT
// How the rows of a window's control table are written:
//   Row<&Form3State::Text2>("Text2", "", {220, 40, 100, 22})
#pragma once

#include <cstddef>

#include "state/window_design.h"

namespace sylvomex {
namespace design {
namespace detail {

template <class T>
struct Member;
template <class FormState, class Value>
struct Member<Value FormState::*> {
  using Owner = FormState;
  using Type = Value;
};

template <class T>
concept ControlArray = requires {
  T::kFirst;
};

template <auto M>
AnyControl Control_At(Form& form, [[maybe_unused]] int index) {
  auto& member = static_cast<typename Member<decltype(M)>::Owner&>(form).*M;
  if constexpr (ControlArray<typename Member<decltype(M)>::Type>) {
    return &member(index);
  } else {
    return &member;
  }
}

template <auto M>
constexpr ControlRow Bare_Row(const char* name) {
  using Type = typename Member<decltype(M)>::Type;
  ControlRow row;
  row.name = name;
  row.control = Control_At<M>;
  if constexpr (ControlArray<Type>) {
    row.first = Type::kFirst;
    row.last = Type::kLast;
  }
  return row;
}

}  // namespace detail

/// The row of a member of a window's record; the controls of an array are spaced one step apart.
template <auto M>
constexpr ControlRow Row(const char* name, const char* text, ControlPlace place,
                         ControlStep step = {}) {
  ControlRow row = detail::Bare_Row<M>(name);
  row.item = {text, place};
  row.step = step;
  return row;
}

/// The row of an array whose controls have individual texts and places, in index order.
template <auto M, std::size_t N>
constexpr ControlRow Row(const char* name, const ControlItem (&items)[N]) {
  static_assert(N == detail::Member<decltype(M)>::Type::kSize, "one item for each control");
  ControlRow row = detail::Bare_Row<M>(name);
  row.items = items;
  return row;
}

constexpr ControlRow Hidden(ControlRow row) {
  row.shown = false;
  return row;
}

}  // namespace design
}  // namespace sylvomex
