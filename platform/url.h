// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace platform {

/// The location of a file or folder; `/` appends a component. Nothing here touches the disk.
using URL = std::filesystem::path;

}  // namespace platform
