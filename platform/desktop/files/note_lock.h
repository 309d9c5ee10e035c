// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/files/unique_fd.h"

namespace platform::desktop {

/// The right to the user's note: a lock on the open folder of the user's data, which the kernel gives to one process
/// and takes back when that one ends, however it ends. The support folder in it may be removed or put aside meanwhile,
/// and a lock on that one would go with it.
struct NoteLock {
  enum class Outcome {
    Held,  ///< by this process, for as long as `folder` is open
    TakenByOther,
    Unavailable,  ///< there is no folder, or its file system has no locks
  };
  Outcome outcome;
  UniqueFd folder;
};

/// Tries at once, without waiting. Makes the folder if it is missing.
NoteLock lockNote();

}  // namespace platform::desktop
