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

/// Hears of resumes, unlocks and displays that come on from whichever services the desktop has, now or later, and posts
/// them as the workspace's and the distributed centre's notifications. But for a resume, only who was told to be away
/// comes back: services repeat that nobody is.
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

  /// Whether that ends an absence. Each source, a session or a service, tells of its own.
  bool endsAbsence(const QString& source, bool away);
  void listenToLoginManager();
  void listenToSession();
  /// Once nothing hides the screen from its user.
  void whenUncovered(void (*post)());

  std::unique_ptr<X11ScreenWatch> screen_;  ///< none on other displays
  QSet<QString> away_;                      ///< the sources that told so last
};

}  // namespace platform::desktop
