// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QSet>
#include <QVariantMap>
#include <memory>

namespace platform::desktop {

class Bus;
class X11ScreenWatch;

/// Listens for resume, unlock and displays that come on, from whichever services the desktop runs now or later, and
/// posts NSWorkspace's and NSDistributedNotificationCenter's notifications. Services repeat
/// their state, so an unlock counts only after a lock, and a display that comes on only after it went off.
class WakeSignals : public QObject {
  Q_OBJECT

 public:
  /// Both buses outlive this.
  WakeSignals(Bus& sessionBus, Bus& systemBus);
  ~WakeSignals() override;

 private:
  Q_SLOT void onPrepareForSleep(bool goingToSleep);
  Q_SLOT void onSessionChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated,
                               const QDBusMessage& message);
  Q_SLOT void onScreenSaverChanged(bool active, const QDBusMessage& message);
  Q_SLOT void onDisplayChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

  /// Records what a session or a service says of itself. True if the user was away for it, and is back.
  bool endsAbsence(const QString& source, bool away);
  void listenToLoginManager();
  void listenToSession();
  /// Calls `post` once no screen locker covers the screen; on displays other than X11 at once.
  void whenUnlocked(void (*post)());

  std::unique_ptr<X11ScreenWatch> screen_;  ///< none on other displays
  QSet<QString> away_;                      ///< the sources for which the user is away
};

}  // namespace platform::desktop
