// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_session.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <algorithm>
#include <utility>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/dbus/bus_names.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds firstPause = 1s;
constexpr std::chrono::milliseconds longestPause = 64s;  // and a session that lasts longer is a success

const QString shortcutsKey = QStringLiteral("shortcuts");
const QString globalShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

/// Empty for an answer of another type, on which qdbus_cast would not terminate.
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

PortalSession::PortalSession(Portal portal, const QList<PortalShortcut>& shortcuts, Activated activated,
                             KeysChanged keysChanged, Asking asking)
    : portal_(std::move(portal)),
      shortcuts_(shortcuts),
      activated_(std::move(activated)),
      keysChanged_(std::move(keysChanged)),
      asking_(std::move(asking)),
      backoff_(firstPause) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<QList<PortalShortcut>>();
  retry_.setSingleShot(true);
  connect(&retry_, &QTimer::timeout, this, &PortalSession::createSession);
  listenToPortal();
  registerAppId();
}

void PortalSession::listenToPortal() {
  portal_.bus.connect(portal_.owner, {}, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"),
                      this, SLOT(onClosed(QDBusMessage)));
  portal_.bus.connect(portal_.owner, {}, globalShortcuts, QStringLiteral("Activated"), this,
                      SLOT(onActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
  portal_.bus.connect(portal_.owner, {}, globalShortcuts, QStringLiteral("Deactivated"), this,
                      SLOT(onDeactivated(QDBusObjectPath, QString)));
  portal_.bus.connect(portal_.owner, {}, globalShortcuts, QStringLiteral("ShortcutsChanged"), this,
                      SLOT(onShortcutsChanged(QDBusMessage)));
}

/// Newer portals give shortcuts only to programs whose id they know; older ones have no Registry and find it out
/// themselves. The session is created after the reply, whatever it says, so that the id is known by then.
void PortalSession::registerAppId() {
  QDBusMessage call = portal_.call(QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"));
  call << serviceName() << QVariantMap();
  onReply(portal_.bus.asyncCall(call), *this, [this](const QDBusPendingCall& /*answer*/) { createSession(); });
}

void PortalSession::createSession() {
  // Plasma 5.27 gives keys only to the shortcuts that it is told here; others do not look.
  const QVariantMap options{{QStringLiteral("session_handle_token"), QStringLiteral("quillberry")},
                            {QStringLiteral("shortcuts"), QVariant::fromValue(shortcuts_)}};
  creation_.emplace(
      portal_, portal_.call(globalShortcuts, QStringLiteral("CreateSession")), options,
      [this](const QVariantMap& results) { onCreated(results); }, [this] { retryIfGrantedBefore(); });
}

/// A portal that has given a session before may just be restarting; one that has never given any has none to give.
void PortalSession::retryIfGrantedBefore() {
  if (lifetime_.isValid()) retryLater();
}

void PortalSession::onCreated(const QVariantMap& results) {
  // This handle is a string, other than the portal's other handles; one that is not a path comes out empty.
  session_ = QDBusObjectPath(results.value(QStringLiteral("session_handle")).toString()).path();
  if (session_.isEmpty()) return retryIfGrantedBefore();
  lifetime_.start();
  bindUnlessBound();
}

/// Plasma 5.27 binds them with the session, and opens its settings at each BindShortcuts.
void PortalSession::bindUnlessBound() {
  QDBusMessage call = portal_.call(globalShortcuts, QStringLiteral("ListShortcuts"));
  call << QVariant::fromValue(QDBusObjectPath(session_));
  listing_.emplace(
      portal_, call, QVariantMap(),
      [this](const QVariantMap& results) { isEachIn(results) ? tellKeys(results) : bind(); }, [this] { bind(); });
}

bool PortalSession::isEachIn(const QVariantMap& results) const {
  const auto bound = shortcutsIn(results.value(shortcutsKey));
  return std::all_of(shortcuts_.begin(), shortcuts_.end(), [&](const PortalShortcut& wanted) {
    return std::any_of(bound.begin(), bound.end(), [&](const PortalShortcut& each) { return each.id == wanted.id; });
  });
}

void PortalSession::bind() {
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

void PortalSession::onShortcutsChanged(const QDBusMessage& message) {
  const auto session = message.arguments().value(0).value<QDBusObjectPath>();
  if (isOurs(session)) tellKeys({{shortcutsKey, message.arguments().value(1)}});
}

bool PortalSession::isOurs(const QDBusObjectPath& session) const {
  return !session_.isEmpty() && session.path() == session_;
}

void PortalSession::tellKeys(const QVariantMap& results) const {
  for (const PortalShortcut& shortcut : shortcutsIn(results.value(shortcutsKey)))
    keysChanged_(shortcut.id, shortcut.properties.value(QStringLiteral("trigger_description")).toString());
}

/// Does not depend on the reply to BindShortcuts: the user may have accepted some of the shortcuts only, and GNOME 48
/// replies with a failure when the user has accepted all.
void PortalSession::onActivated(const QDBusObjectPath& session, const QString& id, qulonglong /*timestamp*/,
                                const QVariantMap& options) {
  if (!isOurs(session)) return;
  const QString token = options.value(QStringLiteral("activation_token")).toString();
  keys_[id].called([this, id, token] { activated_(id, token); });
}

void PortalSession::onDeactivated(const QDBusObjectPath& session, const QString& id) {
  if (isOurs(session)) keys_[id].released();
}

void PortalSession::onClosed(const QDBusMessage& message) {
  if (!isOurs(QDBusObjectPath(message.path()))) return;
  session_.clear();
  listing_.reset();
  binding_.reset();
  asking_(false);
  if (lifetime_.hasExpired(longestPause.count())) backoff_ = firstPause;
  retryLater();
}

void PortalSession::retryLater() {
  retry_.start(backoff_);
  backoff_ = std::min(2 * backoff_, longestPause);
}

}  // namespace platform::desktop
