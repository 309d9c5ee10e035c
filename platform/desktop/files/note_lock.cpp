// SPDX-License-Identifier: MIT
#include "platform/desktop/files/note_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"

namespace platform::desktop {

NoteLock lockNote() {
  const auto path = dataHome();
  makeFolder(path, true);
  UniqueFd folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return {NoteLock::Outcome::Unavailable, UniqueFd()};
  if (flock(folder.get(), LOCK_EX | LOCK_NB) == 0) return {NoteLock::Outcome::Held, std::move(folder)};
  const bool taken = errno == EWOULDBLOCK;
  return {taken ? NoteLock::Outcome::TakenByOther : NoteLock::Outcome::Unavailable, UniqueFd()};
}

}  // namespace platform::desktop
