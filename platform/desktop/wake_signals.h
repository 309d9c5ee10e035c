// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>
#include <memory>

namespace platform::desktop {

class X11ScreenWatch;

/// Hears of resumes, unlocks and displays that come on from whichever services the desktop has, now or later, and posts
/// them as the workspace's and the distributed centre's notifications.
class WakeSignals : public QObject {
  Q_OBJECT

 public:
  WakeSignals();
  ~WakeSignals() override;

 private:
  Q_SLOT void onPrepareForSleep(bool goingToSleep);
  Q_SLOT void onSessionChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated,
                               const QDBusMessage& message);
  Q_SLOT void onScreenSaverChanged(bool active);
  Q_SLOT void onDisplayChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

  void listenToLoginManager();
  void listenToSession();
  /// Once nothing hides the screen from its user.
  void whenUncovered(void (*post)());

  std::unique_ptr<X11ScreenWatch> screen_;  ///< none on other displays
};

}  // namespace platform::desktop
