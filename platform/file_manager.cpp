// SPDX-License-Identifier: MIT
#include "platform/file_manager.h"

#include <string>

namespace platform {

std::error_code NSFileManager::keepUnreadableItemAtURL(const URL& url) {
  const std::string suffix = ".unreadable";
  std::error_code error = keepItem(url, suffix);
  for (int number = 2; error == std::errc::file_exists; ++number) {
    error = keepItem(url, suffix + "." + std::to_string(number));
  }
  return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

}  // namespace platform
