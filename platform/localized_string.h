// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// What the user reads for one of the program's texts. In memory it is the text itself. On a desktop it is what the
/// table of the user's language has for it, else the English one, else the text; and for the symbols of a combination
/// of keys ("⌥⌘N", "esc") the names that these keys have there.
std::string NSLocalizedString(std::string_view key);

}  // namespace platform
