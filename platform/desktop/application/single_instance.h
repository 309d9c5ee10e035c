// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/files/unique_fd.h"

namespace platform::desktop {

/// Makes this the one process on the user's note, or hands over to the one that has it and ends this process: with
/// exit code 0 when that one has come forward, with 1 and a message when it cannot be reached. A process that is
/// just ending is waited for and followed. What is returned is held for the life of the process; it may be empty
/// where nothing can be locked.
UniqueFd becomeTheOneInstance();

}  // namespace platform::desktop
