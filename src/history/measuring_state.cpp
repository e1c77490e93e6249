// SPDX-License-Identifier: MIT
#include "history/measuring_state.h"

#include <utility>

#include "history/block_fields.h"

namespace sylvomex {
namespace {

using Bytes = MeasuringState::Bytes;

struct FormRow {
  Form& (*record)(Workspace& w);
  const WindowDesign* design;
};

template <auto Member>
Form& Form_Of(Workspace& w) {
  return w.*Member;
}

constexpr std::array<FormRow, kHistoryForms> kForms{{
    {Form_Of<&Workspace::Form1>, &kForm1Design},
    {Form_Of<&Workspace::Form2>, &kForm2Design},
    {Form_Of<&Workspace::Form3>, &kForm3Design},
    {Form_Of<&Workspace::Form7>, &kForm7Design},
}};

template <class Act>
void For_Each_Control(Form& form, const WindowDesign& design, Act&& act) {
  Visit_Controls(form, design.controls, [&](const ControlRow&, int, AnyControl any) {
    std::visit(
        [&](auto control) {
          if constexpr (requires { control->Left; }) act(*control);
        },
        any);
  });
}

template <class Visit>
void Visit_Form_Content(Visit& visit, Workspace& w, const FormRow& row) {
  Form& form = row.record(w);
  visit(form.Title, form.Visible, form.Enabled);
  For_Each_Control(form, *row.design, [&](auto& control) { Visit_Content(visit, control); });
}

template <class Visit>
void Visit_Form_Places(Visit& visit, Workspace& w, const FormRow& row) {
  For_Each_Control(row.record(w), *row.design, [&](auto& control) { Visit_Place(visit, control); });
}

template <class Visit>
void Visit_Layout(Visit& visit, Workspace& w) {
  visit(w.Form1.ClientWidth, w.Form1.ClientHeight, w.PaneWidth, w.PaneHeight);
}

template <class VisitFields>
std::string Written(VisitFields&& visit_fields) {
  std::string bytes;
  FieldWriter writer(bytes);
  visit_fields(writer);
  return bytes;
}

Bytes Shared(std::string bytes, const Bytes& former) {
  if (former != nullptr && *former == bytes) return former;
  return std::make_shared<const std::string>(std::move(bytes));
}

using SharedPane = std::shared_ptr<const PaneState>;

SharedPane Take_Pane(Workspace& w, int pane, const SharedPane& former) {
  const Picture& picture = w.Form1.Picture1(pane);
  const bool only_drawn = former != nullptr && former->erase_version == picture.erase_version;
  PaneState state;
  state.fields = Written([&](FieldWriter& writer) { Visit_Pane_Fields(writer, w, pane); });
  state.bitmap = picture.bitmap;
  state.marks = Follow_Marks(picture, only_drawn ? former->marks : nullptr);
  state.erase_version = picture.erase_version;
  const bool unchanged = former != nullptr && former->Shows_The_Same(state) &&
                         former->erase_version == state.erase_version;
  return unchanged ? former : std::make_shared<const PaneState>(std::move(state));
}

bool Same(const Bytes& a, const Bytes& b) {
  return a == b || (a != nullptr && b != nullptr && *a == *b);
}

bool Same(const SharedPane& a, const SharedPane& b) {
  return a == b || (a != nullptr && b != nullptr && a->Shows_The_Same(*b));
}

template <class Parts>
bool All_The_Same(const Parts& a, const Parts& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!Same(a[i], b[i])) return false;
  }
  return true;
}

// A window that comes back gets the focus, as when it was opened.
void Restore_Content(Workspace& w, const FormRow& row, const std::string& bytes) {
  Form& form = row.record(w);
  const bool was_shown = form.Visible;
  FieldReader reader(bytes);
  Visit_Form_Content(reader, w, row);
  if (form.Visible && !was_shown) Set_Focus(form, form.ActiveControl);
  if (was_shown && !form.Visible) Set_Focus(w.Form1, "");
}

SharedPane Restore_Pane(Workspace& w, int pane, const PaneState& state) {
  FieldReader reader(state.fields);
  Visit_Pane_Fields(reader, w, pane);
  Picture& picture = w.Form1.Picture1(pane);
  if (picture.bitmap != state.bitmap) {
    picture.bitmap = state.bitmap;
    ++picture.bitmap_version;
  }
  Lay_Marks(picture, state.marks);
  PaneState restored = state;
  restored.erase_version = picture.erase_version;
  return std::make_shared<const PaneState>(std::move(restored));
}

// The state with its panes as they now stand.
MeasuringState Restored_Panes(Workspace& w, MeasuringState state, const MeasuringState& present) {
  for (int pane = 0; pane < kHistoryPanes; ++pane) {
    const auto i = static_cast<std::size_t>(pane);
    const bool stays = state.panes[i] == nullptr || Same(state.panes[i], present.panes[i]);
    state.panes[i] = stays ? present.panes[i] : Restore_Pane(w, pane, *state.panes[i]);
  }
  return state;
}

std::size_t Bytes_Beside(const SharedPane& pane, const SharedPane& other) {
  if (pane == nullptr || Same(pane, other)) return 0;
  std::size_t bytes = sizeof(PaneState) + pane->fields.size();
  if (pane->bitmap != nullptr && (other == nullptr || other->bitmap != pane->bitmap)) {
    bytes += pane->bitmap->bgr.size();
  }
  if (pane->marks != nullptr && (other == nullptr || other->marks != pane->marks)) {
    bytes += Bytes_Of(*pane->marks);
  }
  return bytes;
}

std::size_t Bytes_Beside(const Bytes& part, const Bytes& other) {
  return part == nullptr || part == other ? 0 : part->size();
}

}  // namespace

bool PaneState::Shows_The_Same(const PaneState& other) const {
  return fields == other.fields && bitmap == other.bitmap && marks == other.marks;
}

bool MeasuringState::operator==(const MeasuringState& other) const {
  return Same(solution, other.solution) && Same(distances, other.distances) &&
         Same(tree, other.tree) && Same(layout, other.layout) &&
         All_The_Same(contents, other.contents) && All_The_Same(places, other.places) &&
         All_The_Same(panes, other.panes);
}

MeasuringState Take_State(Workspace& w, const MeasuringState& former) {
  MeasuringState state;
  state.solution =
      Shared(Written([&](FieldWriter& f) { Visit_Solution_Fields(f, w); }), former.solution);
  state.distances =
      Shared(Written([&](FieldWriter& f) { Visit_Distance_Fields(f, w); }), former.distances);
  state.tree = Shared(Written([&](FieldWriter& f) { Visit_Tree_Fields(f, w); }), former.tree);
  state.layout = Shared(Written([&](FieldWriter& f) { Visit_Layout(f, w); }), former.layout);
  for (std::size_t i = 0; i < kForms.size(); ++i) {
    state.contents[i] = Shared(
        Written([&](FieldWriter& f) { Visit_Form_Content(f, w, kForms[i]); }), former.contents[i]);
    state.places[i] = Shared(Written([&](FieldWriter& f) { Visit_Form_Places(f, w, kForms[i]); }),
                             former.places[i]);
  }
  for (int pane = 0; pane < kHistoryPanes; ++pane) {
    const auto i = static_cast<std::size_t>(pane);
    state.panes[i] = Take_Pane(w, pane, former.panes[i]);
  }
  return state;
}

MeasuringState Restore(Workspace& w, const MeasuringState& state, const MeasuringState& present) {
  const auto read = [](const Bytes& bytes, auto&& visit_fields) {
    FieldReader reader(*bytes);
    visit_fields(reader);
  };
  read(state.solution, [&](FieldReader& f) { Visit_Solution_Fields(f, w); });
  read(state.distances, [&](FieldReader& f) { Visit_Distance_Fields(f, w); });
  read(state.tree, [&](FieldReader& f) { Visit_Tree_Fields(f, w); });
  for (std::size_t i = 0; i < kForms.size(); ++i) {
    Restore_Content(w, kForms[i], *state.contents[i]);
  }
  if (Same(state.layout, present.layout)) {
    for (std::size_t i = 0; i < kForms.size(); ++i) {
      read(state.places[i], [&](FieldReader& f) { Visit_Form_Places(f, w, kForms[i]); });
    }
    return Take_State(w, Restored_Panes(w, state, present));
  }
  return Take_State(w, present);
}

std::size_t Bytes_Beside(const MeasuringState& state, const MeasuringState& other) {
  std::size_t bytes = Bytes_Beside(state.solution, other.solution) +
                      Bytes_Beside(state.distances, other.distances) +
                      Bytes_Beside(state.tree, other.tree);
  for (std::size_t i = 0; i < kForms.size(); ++i) {
    bytes += Bytes_Beside(state.contents[i], other.contents[i]) +
             Bytes_Beside(state.places[i], other.places[i]);
  }
  for (std::size_t i = 0; i < state.panes.size(); ++i) {
    bytes += Bytes_Beside(state.panes[i], other.panes[i]);
  }
  return bytes;
}

std::string Image_Set_Bytes(Workspace& w) {
  std::string bytes;
  FieldWriter writer(bytes);
  for (int k = 0; k < w.ImageCount; ++k) {
    writer(w.ImageBlock(k).ImageId, w.ImageBlock(k).RawFileName);
  }
  return bytes;
}

}  // namespace sylvomex
