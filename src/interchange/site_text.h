// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "interchange/site_record.h"

namespace sylvomex {

/// The content of "site.toml".
std::string Site_Text(const Site& site);

/// Reads "site.toml" (all fields but the folder). name: the file's name in messages. Refused with
/// the place for a text that is no TOML, lacks the coordinate system or holds another type of
/// value.
Site Parse_Site(std::string_view text, const std::string& name);

}  // namespace sylvomex
