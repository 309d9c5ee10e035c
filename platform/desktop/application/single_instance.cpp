// SPDX-License-Identifier: MIT
#include "platform/desktop/application/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/dbus/bus_names.h"
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto handOverTimeout = 3s;  // for a process that is starting or ending
constexpr auto retryInterval = 20ms;
constexpr auto busTimeout = 900ms;

/// The right to write the user's note: a lock that the kernel gives to one process and releases when that one ends,
/// however it ends. It is taken on the folder of the user's data: the note's own folder inside may be removed or
/// renamed meanwhile.
struct NoteLock {
  enum class Outcome {
    Held,  ///< by this process, for as long as `folder` is open
    TakenByOther,
    Unavailable,  ///< there is no folder, or its file system has no locks
  };
  Outcome outcome;
  UniqueFd folder;
};

/// Does not wait. Makes the folder if it is missing.
NoteLock lockNote() {
  const auto path = dataHome();
  makeFolder(path, true);
  UniqueFd folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return {NoteLock::Outcome::Unavailable, UniqueFd()};
  if (flock(folder.get(), LOCK_EX | LOCK_NB) == 0) return {NoteLock::Outcome::Held, std::move(folder)};
  const bool taken = errno == EWOULDBLOCK;
  return {taken ? NoteLock::Outcome::TakenByOther : NoteLock::Outcome::Unavailable, UniqueFd()};
}

/// Asks the running process to come forward. False if none answered.
bool activateRunningInstance() {
  if (!Bus(QDBusConnection::SessionBus).answersWithin(busTimeout)) return false;
  const QString connectionName = QStringLiteral("hand over");
  bool done = false;
  {
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName(), servicePath(), serviceInterface(), QStringLiteral("Activate"));
    call.setAutoStartService(false);
    call << QVariantMap{{activationTokenKey(), qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}};
    done = bus.call(call, QDBus::Block, busTimeout.count()).type() == QDBusMessage::ReplyMessage;
  }
  QDBusConnection::disconnectFromBus(connectionName);
  return done;
}

}  // namespace

UniqueFd ensureSingleInstance() {
  using Clock = std::chrono::steady_clock;
  NoteLock lock = lockNote();
  if (lock.outcome == NoteLock::Outcome::Held) return std::move(lock.folder);

  // If nothing can be locked, only the bus tells whether there is another process.
  int argc = 1;
  char name[] = "quillberry";
  char* argv[] = {name, nullptr};
  const QCoreApplication neededByDBus(argc, argv);
  const auto deadline = Clock::now() + handOverTimeout;
  for (; Clock::now() < deadline; std::this_thread::sleep_for(retryInterval)) {
    if (activateRunningInstance()) std::exit(EXIT_SUCCESS);
    lock = lockNote();
    if (lock.outcome != NoteLock::Outcome::TakenByOther) return std::move(lock.folder);
  }
  std::fputs("Quillberry: another Quillberry has the note, and it cannot be reached over the session bus.\n", stderr);
  std::exit(EXIT_FAILURE);
}

}  // namespace platform::desktop
