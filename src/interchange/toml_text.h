// SPDX-License-Identifier: MIT
// The one way to TOML: all that read or write it include the library through this header, which
// makes its assertions failures that can be caught. On damaged texts they do fail, in release
// builds too.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace sylvomex {

/// An assertion of the TOML library failed.
class TomlAssertion : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

constexpr void Assert_Toml(bool holds) {
  if (!holds) throw TomlAssertion("an assertion of the TOML library");
}

}  // namespace sylvomex

#pragma push_macro("NDEBUG")  // defined, it makes assumptions of the assertions
#undef NDEBUG
#define TOML_ASSERT(condition) ::sylvomex::Assert_Toml(static_cast<bool>(condition))
#include <toml++/toml.h>
#pragma pop_macro("NDEBUG")

namespace sylvomex {

/// Parses a TOML file's text. name: the file's name in messages. Refused with the line, from 1, for
/// a text that is no TOML.
toml::table Parse_Toml(std::string_view text, const std::string& name);

}  // namespace sylvomex
