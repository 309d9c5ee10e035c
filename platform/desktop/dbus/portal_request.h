// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>
#include <functional>

namespace platform::desktop {

/// One running process of the desktop's portal, and the connection on which it knows this program.
struct Portal {
  QDBusConnection bus;
  QString owner;  ///< its unique name: whatever comes from another one is not from it

  static QString name();
  /// A call of the portal's one object; the caller adds the arguments.
  QDBusMessage call(const QString& interface, const QString& method) const;
};

/// A call to the portal that is answered later, by a signal. Destroyed earlier, it hears no answer.
class PortalRequest : public QObject {
  Q_OBJECT

 public:
  using Granted = std::function<void(const QVariantMap& results)>;
  using Refused = std::function<void()>;

  /// Sends `call`, to which the request's own `options` are added as the last argument. One of the two is called, once:
  /// `granted` when the portal has done what was asked, `refused` when it will not or the call is an error. An answer
  /// that cannot be read is silence.
  PortalRequest(Portal portal, QDBusMessage call, QVariantMap options, Granted granted, Refused refused = {});

 private:
  Q_SLOT void onResponse(uint code, const QVariantMap& results);
  void refuse();

  Portal portal_;
  Granted granted_;
  Refused refused_;
};

}  // namespace platform::desktop
