// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/files/unique_fd.h"

namespace platform::desktop {

/// Makes this process the only one on the user's note, and returns the lock, to be held for the life of the process; it
/// is empty where nothing can be locked. If another process has the note, that one is asked to come forward and this
/// one ends: with exit code 0, or with 1 and a message if the other cannot be reached. If the other is just ending,
/// this one waits for it and takes its place.
UniqueFd becomeTheOneInstance();

}  // namespace platform::desktop
