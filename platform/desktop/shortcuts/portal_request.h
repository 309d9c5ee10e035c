// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>
#include <functional>

namespace platform::desktop {

/// The process that is the desktop's portal now, and the connection on which it knows this program.
struct Portal {
  QDBusConnection bus;
  QString owner;  ///< its unique bus name, by which its signals are told from those of an earlier portal process

  static QString name();
  /// A call to the portal's one object; the caller adds the arguments.
  QDBusMessage call(const QString& interface, const QString& method) const;
};

/// A call to the portal whose result comes later, as a signal. Destroying the request drops the result.
class PortalRequest : public QObject {
  Q_OBJECT

 public:
  using Granted = std::function<void(const QVariantMap& results)>;
  using Refused = std::function<void()>;

  /// Sends `call` with `options` and a handle token as its last argument. Afterwards calls one of the two, once:
  /// `granted` with the results, or `refused` if the portal declines or the call fails. Neither is called while the
  /// portal sends nothing that can be read; there is no time limit, for a user may be thinking about a dialog.
  PortalRequest(Portal portal, QDBusMessage call, QVariantMap options, Granted granted, Refused refused = {});

 private:
  Q_SLOT void onResponse(uint code, const QVariantMap& results);
  void refuse();

  Portal portal_;
  Granted granted_;
  Refused refused_;
};

}  // namespace platform::desktop
