// SPDX-License-Identifier: MIT
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "platform/file_manager.h"
#include "platform/string.h"
#include "platform/utf8.h"

namespace platform {

NSFileManager& NSFileManager::defaultManager() {
  static NSFileManager manager;
  return manager;
}

std::vector<URL> NSFileManager::URLsForDirectory(NSSearchPathDirectory /*directory*/,
                                                 NSSearchPathDomainMask /*domain*/) {
  return {desktop::dataHome()};
}

std::error_code NSFileManager::createDirectoryAtURL(const URL& url, bool withIntermediateDirectories) {
  return desktop::makeFolder(url, withIntermediateDirectories);
}

std::error_code NSFileManager::keepItem(const URL& url, std::string_view suffix) {
  return desktop::linkBackup(url, suffix);
}

std::optional<std::string> NSString::stringWithContentsOfURL(const URL& url, std::error_code& error) {
  desktop::removeStaleTemporaries(url);
  auto text = desktop::readFile(url, desktop::largestText, error);
  if (text && !isValidUtf8(*text)) {
    error = std::make_error_code(std::errc::illegal_byte_sequence);
    text.reset();
  }
  return text;
}

std::error_code NSString::writeToURL(std::string_view text, const URL& url) { return desktop::replaceFile(url, text); }

}  // namespace platform
