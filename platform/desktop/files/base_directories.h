// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace platform::desktop {

/// $XDG_DATA_HOME if it is absolute, else .local/share in the home folder.
std::filesystem::path dataHome();
/// $XDG_CONFIG_HOME if it is absolute, else .config in the home folder.
std::filesystem::path configHome();

}  // namespace platform::desktop
