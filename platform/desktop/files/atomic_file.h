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

/// Far more than settings ever are, in bytes.
constexpr std::size_t largestSettings = std::size_t{1} << 20;
/// What a text on the screen can hold, whose places are counted in ints, in bytes.
constexpr std::size_t largestText = std::size_t{1} << 30;

/// The whole of a regular file of at most `largest` bytes. Anything else that has the name is an error, and never
/// waited for.
std::optional<std::string> readFile(const std::filesystem::path&, std::size_t largest, std::error_code& error);

/// Replaces the contents of the file that `path` finally leads to, in one step and durably; see NSString::writeToURL.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view contents);

/// Removes what a replacement of this file left behind when it was cut short.
void sweepAuxiliaryFiles(const std::filesystem::path&);

/// Gives a file an additional name, its own with `suffix` behind; see NSFileManager::keepUnreadableItemAtURL. No file
/// is ever replaced: file_exists if another one has that name, while one that the file has already is a success.
std::error_code keepFile(const std::filesystem::path&, std::string_view suffix);

/// Makes a folder for its owner only, with its missing parents if asked to. One that exists is a success.
std::error_code makeFolder(const std::filesystem::path&, bool withParents);

}  // namespace platform::desktop
