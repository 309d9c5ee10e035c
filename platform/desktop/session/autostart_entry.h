// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

#include "platform/login_item.h"

namespace platform::desktop {

/// The XDG autostart entries by the program's identifier: the user's own, and what the system has in its place.
class AutostartEntry {
 public:
  /// `program`: the absolute path of what the entry is to start.
  explicit AutostartEntry(std::filesystem::path program);

  /// What the desktop would do at the next login; see SMAppService.
  SMAppServiceStatus status() const;
  /// Both write the user's own file only, and only where the desktop would do otherwise.
  std::optional<NSError> switchOn() const;
  std::optional<NSError> switchOff() const;

 private:
  std::optional<NSError> save(const std::string& entry) const;

  std::filesystem::path program_;
  std::filesystem::path file_;  ///< the user's own
};

/// Where the running program is, also after an upgrade has replaced it. `link` leads to it as the kernel tells it.
std::filesystem::path runningProgram(const std::filesystem::path& link = "/proc/self/exe");

}  // namespace platform::desktop
