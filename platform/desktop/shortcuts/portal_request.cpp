// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_request.h"

#include <utility>

#include "platform/desktop/dbus/bus.h"

namespace platform::desktop {
namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// The object path on which the portal answers the request with that token.
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
  // Before the call: the response signal may come before the method's reply.
  portal_.bus.connect(portal_.owner, requestPath(portal_.bus.baseService(), token),
                      QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"), this,
                      SLOT(onResponse(uint, QVariantMap)));
  options.insert(QStringLiteral("handle_token"), token);
  call << options;
  onReply(portal_.bus.asyncCall(call), *this, [this](const QDBusPendingCall& reply) {
    if (reply.isError()) refuse();
  });
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
