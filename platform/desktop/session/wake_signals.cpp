// SPDX-License-Identifier: MIT
#include "platform/desktop/session/wake_signals.h"

#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/session/x11_screen_watch.h"
#include "platform/desktop/x11/x11.h"
#include "platform/workspace.h"

namespace platform {

// The services are listened to from the start, not only once somebody observes.
void NSNotificationCenter::observerAdded(std::string_view /*name*/) {}

}  // namespace platform

namespace platform::desktop {
namespace {

const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString propertiesChanged = QStringLiteral("PropertiesChanged");
const QString loginManager = QStringLiteral("org.freedesktop.login1");
const QString loginSession = QStringLiteral("org.freedesktop.login1.Session");
const QString displayConfiguration = QStringLiteral("org.gnome.Mutter.DisplayConfig");

/// Each desktop has its own screen saver service, whose bus name is also its interface; the signals are the same.
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

WakeSignals::WakeSignals(Bus& sessionBus, Bus& systemBus) {
  systemBus.whenItAnswers(*this, [this] { listenToLoginManager(); });
  sessionBus.whenItAnswers(*this, [this] { listenToSession(); });
  if (auto* const connection = x11::connection()) {
    screen_ = std::make_unique<X11ScreenWatch>(connection);
    screen_->onScreenSaverEnded = [this] { whenUnlocked(postScreensWake); };
  }
}

WakeSignals::~WakeSignals() = default;

void WakeSignals::listenToLoginManager() {
  const QDBusConnection bus = QDBusConnection::systemBus();
  connectToOwner(bus, loginManager, {}, QStringLiteral("org.freedesktop.login1.Manager"),
                 QStringLiteral("PrepareForSleep"), {}, {}, *this, SLOT(onPrepareForSleep(bool)));
  connectToOwner(bus, loginManager, {}, properties, propertiesChanged, {loginSession}, QStringLiteral("sa{sv}as"),
                 *this, SLOT(onSessionChanged(QString, QVariantMap, QStringList, QDBusMessage)));
}

void WakeSignals::listenToSession() {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  for (const char* const name : screenSavers) {
    const QLatin1String screenSaver(name);
    connectToOwner(bus, screenSaver, {}, screenSaver, QStringLiteral("ActiveChanged"), {}, {}, *this,
                   SLOT(onScreenSaverChanged(bool, QDBusMessage)));
  }
  connectToOwner(bus, displayConfiguration, {}, properties, propertiesChanged, {displayConfiguration},
                 QStringLiteral("sa{sv}as"), *this, SLOT(onDisplayChanged(QString, QVariantMap, QStringList)));
}

bool WakeSignals::endsAbsence(const QString& source, bool away) {
  if (!away) return away_.remove(source);
  away_.insert(source);
  return false;
}

void WakeSignals::onPrepareForSleep(bool goingToSleep) {
  if (!goingToSleep) whenUnlocked(postSystemWake);
}

void WakeSignals::onSessionChanged(const QString& /*interface*/, const QVariantMap& changed,
                                   const QStringList& /*invalidated*/, const QDBusMessage& message) {
  const QVariant locked = changed.value(QStringLiteral("LockedHint"));
  if (!locked.isValid() || !endsAbsence(message.path(), locked.toBool())) return;
  // Other users of the machine have sessions too.
  const QDBusMessage question = getProperty(loginManager, message.path(), loginSession, QStringLiteral("User"));
  onReply(QDBusConnection::systemBus().asyncCall(question), *this, [this](const QDBusPendingReply<QDBusVariant>& user) {
    if (user.isValid() && isOurUser(user.value().variant())) whenUnlocked(postUnlock);
  });
}

void WakeSignals::onScreenSaverChanged(bool active, const QDBusMessage& message) {
  if (endsAbsence(message.interface(), active)) whenUnlocked(postUnlock);
}

void WakeSignals::onDisplayChanged(const QString& interface, const QVariantMap& changed,
                                   const QStringList& /*invalidated*/) {
  const QVariant powerSaveMode = changed.value(QStringLiteral("PowerSaveMode"));
  if (powerSaveMode.isValid() && endsAbsence(interface, powerSaveMode.toInt() != 0)) whenUnlocked(postScreensWake);
}

void WakeSignals::whenUnlocked(void (*post)()) {
  if (screen_) {
    screen_->whenUnlocked(post);
  } else {
    post();
  }
}

}  // namespace platform::desktop
