// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace platform {

/// One line to the system log and to standard error; the message is taken literally.
void NSLog(std::string_view message);

}  // namespace platform
