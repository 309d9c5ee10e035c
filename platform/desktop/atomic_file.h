// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// Files on disk: the one place that reads, replaces and links them.
namespace platform::desktop {

/// The largest file that is read, in bytes: far more than any note, and what memory takes as a text on the screen.
constexpr std::size_t largestFile = std::size_t{64} << 20;

/// The whole of a regular file. Anything else that has the name is an error, and never waited for; so is a file that
/// is larger than `largestFile`.
std::optional<std::string> readFile(const std::filesystem::path&, std::error_code& error);

/// Replaces the contents of the file that `path` finally leads to, in one step and durably; see NSString::writeToURL.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view contents);

/// Removes what a replacement of this file left behind when it was cut short.
void sweepAuxiliaryFiles(const std::filesystem::path&);

/// Gives the file that `source` finally leads to the additional name `destination`; replaces nothing.
std::error_code linkFile(const std::filesystem::path& source, const std::filesystem::path& destination);

/// Makes a folder for its owner only, with its missing parents if asked to. One that exists is a success.
std::error_code makeFolder(const std::filesystem::path&, bool withParents);

}  // namespace platform::desktop
