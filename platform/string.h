// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/url.h"

namespace platform {

/// Whole texts in files. A text is UTF-8 in a std::string.
namespace NSString {

/// The whole text of a regular file, byte for byte. Without a value `error` says why: no_such_file_or_directory
/// only when nothing is there, illegal_byte_sequence when it is not valid UTF-8, anything else when something is
/// there that cannot be read, file_too_large with more than 1 GiB. What a write of this file that was cut short left
/// behind is cleared away.
std::optional<std::string> stringWithContentsOfURL(const URL&, std::error_code& error);

/// Replaces the file's contents in one step: an auxiliary file in the same folder, written and synced in full,
/// is renamed over it. At every moment the file holds the old text or the new one. A symbolic link stays one and
/// its target gets the text. An existing file keeps its mode, a new one is its owner's only.
/// On an error the old text is whole and no auxiliary file is left. Where the disk refuses the last step alone, the
/// syncing of the folder, it is a success that a power cut may undo: that brings the old text back.
std::error_code writeToURL(std::string_view text, const URL&);

}  // namespace NSString
}  // namespace platform
