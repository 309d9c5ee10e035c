// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_shortcuts.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <algorithm>
#include <utility>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/session/application_service.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds firstPause = 1s;
constexpr std::chrono::milliseconds longestPause = 64s;  // and a session that lasts longer is a success

const QString shortcutsKey = QStringLiteral("shortcuts");
const QString globalShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

/// Empty for an answer of another type: Qt does not come to the end of one that it reads as this.
QList<PortalShortcut> shortcutsIn(const QVariant& answer) {
  const bool readable = answer.value<QDBusArgument>().currentSignature() == QLatin1String("a(sa{sv})");
  return readable ? qdbus_cast<QList<PortalShortcut>>(answer) : QList<PortalShortcut>();
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

PortalShortcuts::PortalShortcuts(Portal portal, const QList<PortalShortcut>& shortcuts, Activated activated,
                                 KeysChanged keysChanged, Asking asking)
    : portal_(std::move(portal)),
      shortcuts_(shortcuts),
      activated_(std::move(activated)),
      keysChanged_(std::move(keysChanged)),
      asking_(std::move(asking)),
      pause_(firstPause) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<QList<PortalShortcut>>();
  renewal_.setSingleShot(true);
  connect(&renewal_, &QTimer::timeout, this, &PortalShortcuts::createSession);
  listen();
  tellName();
}

void PortalShortcuts::listen() {
  portal_.bus.connect(portal_.owner, {}, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"),
                      this, SLOT(onClosed(QDBusMessage)));
  portal_.bus.connect(portal_.owner, {}, globalShortcuts, QStringLiteral("Activated"), this,
                      SLOT(onActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
  portal_.bus.connect(portal_.owner, {}, globalShortcuts, QStringLiteral("ShortcutsChanged"), this,
                      SLOT(onShortcutsChanged(QDBusMessage)));
}

/// A portal that knows programs by their names gives shortcuts to no other; one that cannot be told of it finds it out
/// itself, or has no need of it. Its answer is awaited, so that it knows the name when the session is asked for.
void PortalShortcuts::tellName() {
  QDBusMessage call = portal_.call(QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"));
  call << serviceName() << QVariantMap();
  onReply(portal_.bus.asyncCall(call), *this, [this](const QDBusPendingCall& /*answer*/) { createSession(); });
}

void PortalShortcuts::createSession() {
  // Plasma 5.27 gives keys only to the shortcuts that it is told here; others do not look.
  const QVariantMap options{{QStringLiteral("session_handle_token"), QStringLiteral("quillberry")},
                            {QStringLiteral("shortcuts"), QVariant::fromValue(shortcuts_)}};
  creation_.emplace(
      portal_, portal_.call(globalShortcuts, QStringLiteral("CreateSession")), options,
      [this](const QVariantMap& results) { onCreated(results); }, [this] { askAgainIfGivenBefore(); });
}

/// What closed the session may be starting anew itself; a portal that never gave one has none to give.
void PortalShortcuts::askAgainIfGivenBefore() {
  if (lifetime_.isValid()) renewLater();
}

void PortalShortcuts::onCreated(const QVariantMap& results) {
  // A string, whatever else handles are; what is no path comes out empty.
  session_ = QDBusObjectPath(results.value(QStringLiteral("session_handle")).toString()).path();
  if (session_.isEmpty()) return askAgainIfGivenBefore();
  lifetime_.start();
  bindUnlessBound();
}

/// Plasma 5.27 has bound them with the session, and would open its settings each time that it is asked to bind.
void PortalShortcuts::bindUnlessBound() {
  QDBusMessage call = portal_.call(globalShortcuts, QStringLiteral("ListShortcuts"));
  call << QVariant::fromValue(QDBusObjectPath(session_));
  listing_.emplace(
      portal_, call, QVariantMap(),
      [this](const QVariantMap& results) { isEachIn(results) ? tellKeys(results) : bind(); }, [this] { bind(); });
}

bool PortalShortcuts::isEachIn(const QVariantMap& results) const {
  const auto bound = shortcutsIn(results.value(shortcutsKey));
  return std::all_of(shortcuts_.begin(), shortcuts_.end(), [&](const PortalShortcut& wanted) {
    return std::any_of(bound.begin(), bound.end(), [&](const PortalShortcut& each) { return each.id == wanted.id; });
  });
}

void PortalShortcuts::bind() {
  QDBusMessage call = portal_.call(globalShortcuts, QStringLiteral("BindShortcuts"));
  const QString noParentWindow = QStringLiteral("");
  call << QVariant::fromValue(QDBusObjectPath(session_)) << QVariant::fromValue(shortcuts_) << noParentWindow;
  asking_(true);
  binding_.emplace(
      portal_, call, QVariantMap(),
      [this](const QVariantMap& results) {
        asking_(false);
        tellKeys(results);
      },
      [this] { asking_(false); });
}

void PortalShortcuts::onShortcutsChanged(const QDBusMessage& message) {
  const auto session = message.arguments().value(0).value<QDBusObjectPath>();
  if (isOurs(session)) tellKeys({{shortcutsKey, message.arguments().value(1)}});
}

bool PortalShortcuts::isOurs(const QDBusObjectPath& session) const {
  return !session_.isEmpty() && session.path() == session_;
}

void PortalShortcuts::tellKeys(const QVariantMap& results) const {
  for (const PortalShortcut& shortcut : shortcutsIn(results.value(shortcutsKey)))
    keysChanged_(shortcut.id, shortcut.properties.value(QStringLiteral("trigger_description")).toString());
}

/// Whatever the portal answered when it was asked to bind: the user may have taken only some of them, and GNOME 48 says
/// that it has failed when the user has taken all.
void PortalShortcuts::onActivated(const QDBusObjectPath& session, const QString& id, qulonglong /*timestamp*/,
                                  const QVariantMap& options) {
  if (!isOurs(session)) return;
  activated_(id, options.value(QStringLiteral("activation_token")).toString());
}

void PortalShortcuts::onClosed(const QDBusMessage& message) {
  if (!isOurs(QDBusObjectPath(message.path()))) return;
  session_.clear();
  listing_.reset();
  binding_.reset();
  asking_(false);
  if (lifetime_.hasExpired(longestPause.count())) pause_ = firstPause;
  renewLater();
}

void PortalShortcuts::renewLater() {
  renewal_.start(pause_);
  pause_ = std::min(2 * pause_, longestPause);
}

}  // namespace platform::desktop
