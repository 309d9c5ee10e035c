// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/portal_request.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace platform::desktop {
namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// Where the portal answers the caller's request of that token.
QString requestPath(const QString& uniqueName, const QString& token) {
  const QString caller = uniqueName.mid(1).replace(u'.', u'_');
  return QStringLiteral("%1/request/%2/%3").arg(portalPath, caller, token);
}

QString newToken() {
  static int count = 0;
  return QStringLiteral("quillberry%1").arg(++count);
}

}  // namespace

QString Portal::name() { return QStringLiteral("org.freedesktop.portal.Desktop"); }

QDBusMessage Portal::call(const QString& interface, const QString& method) const {
  return QDBusMessage::createMethodCall(owner, portalPath, interface, method);
}

PortalRequest::PortalRequest(Portal portal, QDBusMessage call, QVariantMap options, Granted granted, Refused refused)
    : portal_(std::move(portal)), granted_(std::move(granted)), refused_(std::move(refused)) {
  const QString token = newToken();
  const QString expectedPath = requestPath(portal_.bus.baseService(), token);
  listen(expectedPath);  // before the call: the answer may come before its reply
  options.insert(QStringLiteral("handle_token"), token);
  call << options;
  auto* const watcher = new QDBusPendingCallWatcher(portal_.bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, expectedPath] {
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    if (reply.isError()) refuse();
    // An old portal takes no token and says only now where it answers.
    if (reply.isValid() && reply.value().path() != expectedPath) listen(reply.value().path());
    watcher->deleteLater();
  });
}

void PortalRequest::listen(const QString& path) {
  portal_.bus.connect(portal_.owner, path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
                      this, SLOT(onResponse(uint, QVariantMap)));
}

void PortalRequest::onResponse(uint code, const QVariantMap& results) {
  constexpr uint success = 0;
  if (code != success) {
    refuse();
    return;
  }
  refused_ = nullptr;
  if (const auto granted = std::exchange(granted_, nullptr)) granted(results);
}

void PortalRequest::refuse() {
  granted_ = nullptr;
  if (const auto refused = std::exchange(refused_, nullptr)) refused();
}

}  // namespace platform::desktop
