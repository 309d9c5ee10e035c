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

  /// Gives the file that the URL finally leads to (through symbolic links) an additional name in its own folder: its
  /// own with `suffix` behind. A file that can have no second name is renamed instead; a folder stays as it is.
  /// No file is ever replaced: std::errc::file_exists if another one has that name, no_such_file_or_directory if there
  /// is nothing to name, another error where the file system refuses. Durable when it returns success.
  std::error_code keepItemAtURL(const URL&, std::string_view suffix);

  /// Keeps a file that could not be read before something replaces it, with ".unreadable" behind its name, then
  /// ".unreadable.2", ".3" and so on; see `keepItemAtURL`. Nothing there to keep is a success.
  std::error_code keepUnreadableItemAtURL(const URL&);
};

}  // namespace platform
