// SPDX-License-Identifier: MIT
#include "platform/desktop/wake_signals.h"

#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "platform/desktop/application_service.h"
#include "platform/desktop/x11.h"
#include "platform/desktop/x11_screen_watch.h"
#include "platform/workspace.h"

namespace platform::desktop {
namespace {

const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString propertiesChanged = QStringLiteral("PropertiesChanged");
const QString loginManager = QStringLiteral("org.freedesktop.login1");
const QString loginSession = QStringLiteral("org.freedesktop.login1.Session");
const QString displayConfiguration = QStringLiteral("org.gnome.Mutter.DisplayConfig");

/// Every desktop has its own screen saver under its own name; their signals are alike.
constexpr const char* screenSavers[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                        "org.cinnamon.ScreenSaver", "org.mate.ScreenSaver", "org.xfce.ScreenSaver"};

void postUnlock() {
  NSDistributedNotificationCenter::defaultCenter().postNotificationName("com.apple.screenIsUnlocked", nullptr);
}

void postSystemWake() {
  NSWorkspace::sharedWorkspace().notificationCenter().postNotificationName(NSWorkspaceDidWakeNotification, nullptr);
}
void postScreensWake() {
  NSWorkspace::sharedWorkspace().notificationCenter().postNotificationName(NSWorkspaceScreensDidWakeNotification,
                                                                           nullptr);
}

/// Whether a session's property User, a number and a path, names the user of this process.
bool isOurUser(const QVariant& value) {
  if (!value.canConvert<QDBusArgument>()) return false;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentType() != QDBusArgument::StructureType) return false;
  uint user = 0;
  argument.beginStructure();
  argument >> user;
  argument.endStructure();
  return user == getuid();
}

}  // namespace

WakeSignals::WakeSignals() {
  listenToLoginManager();
  listenToSession();
  if (auto* const connection = x11::connection()) {
    screen_ = std::make_unique<X11ScreenWatch>(connection);
    screen_->onDisplayOn = [this] { whenUncovered(postScreensWake); };
  }
}

WakeSignals::~WakeSignals() = default;

void WakeSignals::listenToLoginManager() {
  QDBusConnection bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return;
  bus.connect(loginManager, {}, QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"),
              this, SLOT(onPrepareForSleep(bool)));
  bus.connect(loginManager, {}, properties, propertiesChanged, {loginSession}, QStringLiteral("sa{sv}as"), this,
              SLOT(onSessionChanged(QString, QVariantMap, QStringList, QDBusMessage)));
}

void WakeSignals::listenToSession() {
  if (!sessionBusExists()) return;
  QDBusConnection bus = QDBusConnection::sessionBus();
  // From whoever sends them: a service may start later, or start again.
  for (const char* const screenSaver : screenSavers) {
    bus.connect({}, {}, QLatin1String(screenSaver), QStringLiteral("ActiveChanged"), this,
                SLOT(onScreenSaverChanged(bool)));
  }
  bus.connect({}, {}, properties, propertiesChanged, {displayConfiguration}, QStringLiteral("sa{sv}as"), this,
              SLOT(onDisplayChanged(QString, QVariantMap, QStringList)));
}

void WakeSignals::onPrepareForSleep(bool goingToSleep) {
  if (!goingToSleep) whenUncovered(postSystemWake);
}

void WakeSignals::onSessionChanged(const QString& /*interface*/, const QVariantMap& changed,
                                   const QStringList& /*invalidated*/, const QDBusMessage& message) {
  const QVariant locked = changed.value(QStringLiteral("LockedHint"));
  if (!locked.isValid() || locked.toBool()) return;
  // Other users of the machine have sessions too.
  QDBusMessage question =
      QDBusMessage::createMethodCall(loginManager, message.path(), properties, QStringLiteral("Get"));
  question << loginSession << QStringLiteral("User");
  auto* const call = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(question), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    const QDBusPendingReply<QDBusVariant> answer = *call;
    if (answer.isValid() && isOurUser(answer.value().variant())) whenUncovered(postUnlock);
    call->deleteLater();
  });
}

void WakeSignals::onScreenSaverChanged(bool active) {
  if (!active) whenUncovered(postUnlock);
}

void WakeSignals::onDisplayChanged(const QString& /*interface*/, const QVariantMap& changed,
                                   const QStringList& /*invalidated*/) {
  const QVariant powerSaveMode = changed.value(QStringLiteral("PowerSaveMode"));
  if (powerSaveMode.isValid() && powerSaveMode.toInt() == 0) whenUncovered(postScreensWake);
}

void WakeSignals::whenUncovered(void (*post)()) {
  if (screen_) {
    screen_->whenUncovered(post);
  } else {
    post();
  }
}

}  // namespace platform::desktop
