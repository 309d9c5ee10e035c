// SPDX-License-Identifier: MIT
#include "platform/desktop/files/base_directories.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace platform::desktop {
namespace {

std::filesystem::path home() {
  const char* const variable = std::getenv("HOME");
  if (variable != nullptr && *variable != '\0') return variable;
  const passwd* const user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

std::filesystem::path baseDirectory(const char* variable, const char* inHome) {
  const char* const value = std::getenv(variable);
  const std::filesystem::path path = value != nullptr ? value : "";
  return path.is_absolute() ? path : home() / inHome;
}

}  // namespace

std::filesystem::path dataHome() { return baseDirectory("XDG_DATA_HOME", ".local/share"); }
std::filesystem::path configHome() { return baseDirectory("XDG_CONFIG_HOME", ".config"); }

}  // namespace platform::desktop
