// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Whether every byte of `text` belongs to a well-formed UTF-8 sequence: no overlong forms, no surrogates,
/// nothing above U+10FFFF. NUL, noncharacters and a byte-order mark are well-formed.
bool isValidUtf8(std::string_view text);

/// The number of UTF-16 units that valid UTF-8 takes: the unit in which a text view counts positions.
std::size_t utf16Length(std::string_view validUtf8);

}  // namespace platform
