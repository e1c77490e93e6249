// SPDX-License-Identifier: MIT
#include "state/box_numbers.h"

#include <string>

#include "platform/number_text.h"

namespace sylvomex {
namespace {

// name is called only when the text is not a number.
template <class Name>
double Number_Of(const TextBox& box, Name&& name) {
  try {
    return Parse_Double(box.Text);
  } catch (const RunTimeError& error) {
    throw error.At(name());
  }
}

}  // namespace

double Number_In(const TextBox& box, std::string_view name) {
  return Number_Of(box, [name] { return std::string(name); });
}

FilmPosition Film_In_Boxes(const Workspace& w, int image) {
  const auto film = [&w, image](int item) {
    return Number_Of(w.Form1.Text1(item), [item, image] {
      return "Text1(" + std::to_string(item) + ") of image " + std::to_string(image);
    });
  };
  const double x = film(2 * image);
  return {x, film(2 * image + 1)};
}

}  // namespace sylvomex
