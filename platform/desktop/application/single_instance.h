// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/base/unique_fd.h"

namespace platform::desktop {

/// Takes the lock on the user's note and returns it, to be held for the life of the process; empty if nothing can be
/// locked. If another process holds it, that one is asked to show its window and this one exits: with 0, or with 1 and
/// a message if the other cannot be reached. If the other is just ending, this one waits and takes its place.
UniqueFd ensureSingleInstance();

}  // namespace platform::desktop
