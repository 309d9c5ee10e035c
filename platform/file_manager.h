// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <system_error>
#include <vector>

#include "platform/url.h"

namespace platform {

enum NSSearchPathDirectory { NSApplicationSupportDirectory = 14 };
enum NSSearchPathDomainMask { NSUserDomainMask = 1 };

class NSFileManager {
 public:
  static NSFileManager& defaultManager();

  /// Where the user's files of that kind belong, best first, always at least one. On a desktop that is
  /// $XDG_DATA_HOME if it is absolute, else .local/share in the home folder. The folder need not exist.
  std::vector<URL> URLsForDirectory(NSSearchPathDirectory, NSSearchPathDomainMask);

  /// Makes a folder, with its missing parents if asked to, open to its owner only. One that exists is a success.
  std::error_code createDirectoryAtURL(const URL&, bool withIntermediateDirectories);

  /// Keeps a file that could not be read before something replaces it: the file that the URL finally leads to (through
  /// symbolic links) gets a second name in its own folder, its own with ".unreadable" behind, or ".unreadable.2", ".3"
  /// and so on, the first that no other file has. A file that can have no second name is renamed instead; a folder
  /// stays as it is, with an error. Nothing there to keep is a success. Durable when it returns success.
  std::error_code keepUnreadableItemAtURL(const URL&);

 private:
  // A platform's part, for one suffix: file_exists if another file has that name, and nothing to name is
  // no_such_file_or_directory.
  static std::error_code keepItem(const URL&, std::string_view suffix);
};

}  // namespace platform
