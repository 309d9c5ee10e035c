// SPDX-License-Identifier: MIT
#include "platform/desktop/application/single_instance.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/files/note_lock.h"
#include "platform/desktop/session/application_service.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 3s;  // for a process that is starting or ending
constexpr auto pause = 20ms;
constexpr auto patienceWithBus = 900ms;

/// Asks the running process to come forward. False if nobody did.
bool handOver() {
  if (!Bus(QDBusConnection::SessionBus).answersWithin(patienceWithBus)) return false;
  const QString connectionName = QStringLiteral("hand over");
  bool done = false;
  {
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName(), servicePath(), serviceInterface(), QStringLiteral("Activate"));
    call.setAutoStartService(false);
    call << QVariantMap{{activationTokenKey(), qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}};
    done = bus.call(call, QDBus::Block, patienceWithBus.count()).type() == QDBusMessage::ReplyMessage;
  }
  QDBusConnection::disconnectFromBus(connectionName);
  return done;
}

}  // namespace

UniqueFd becomeTheOneInstance() {
  using Clock = std::chrono::steady_clock;
  NoteLock lock = lockNote();
  if (lock.outcome == NoteLock::Outcome::Held) return std::move(lock.folder);

  // Without a lock the bus alone can tell whether there is another process.
  int argc = 1;
  char name[] = "quillberry";
  char* argv[] = {name, nullptr};
  const QCoreApplication busNeedsOne(argc, argv);
  for (const auto start = Clock::now(); Clock::now() - start < patience; std::this_thread::sleep_for(pause)) {
    if (handOver()) std::exit(EXIT_SUCCESS);
    lock = lockNote();
    if (lock.outcome != NoteLock::Outcome::TakenByOther) return std::move(lock.folder);
  }
  std::fputs("Quillberry: another Quillberry has the note, and it cannot be reached over the session bus.\n", stderr);
  std::exit(EXIT_FAILURE);
}

}  // namespace platform::desktop
