// SPDX-License-Identifier: MIT
#pragma once

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

  /// Gives the file that `source` finally leads to (through symbolic links) the additional name `destination`.
  /// No file is ever replaced: std::errc::file_exists if that name is taken, no_such_file_or_directory if there
  /// is nothing at `source`, another error where the file system refuses. Durable when it returns success.
  std::error_code linkItemAtURL(const URL& source, const URL& destination);

  /// Gives a file that cannot be read a second name before something replaces it: its own with ".unreadable" behind,
  /// then ".unreadable.2", ".3" and so on. The file stays where it is. Nothing there to keep is a success.
  std::error_code keepUnreadableItemAtURL(const URL&);
};

}  // namespace platform
