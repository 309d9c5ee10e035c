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

/// In bytes, far more than settings ever are.
constexpr std::size_t largestSettings = std::size_t{1} << 20;
/// In bytes. Qt counts the characters of a text on the screen in ints.
constexpr std::size_t largestText = std::size_t{1} << 30;

/// The whole of a regular file of at most `largest` bytes. Anything else, a device or a pipe for example, is an error
/// at once.
std::optional<std::string> readFile(const std::filesystem::path&, std::size_t largest, std::error_code& error);

/// Replaces the contents of the file that `path` finally leads to, in one step and durably; see NSString::writeToURL.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view contents);

/// Removes the temporary files that interrupted replacements of this file have left behind.
void removeStaleTemporaries(const std::filesystem::path&);

/// Gives a file a second name, its own followed by `suffix`; see NSFileManager::keepUnreadableItemAtURL. Succeeds if
/// the file has that name already; file_exists if another file has it, since no file is ever replaced.
std::error_code linkBackup(const std::filesystem::path&, std::string_view suffix);

/// Makes a folder, readable by its owner only, and its missing parents if asked to. Succeeds if it exists.
std::error_code makeFolder(const std::filesystem::path&, bool withParents);

}  // namespace platform::desktop
