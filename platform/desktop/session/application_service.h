// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/menu.h"

namespace platform::desktop {

/// The program's name on the session bus, the path of its one object, and that object's interface.
QString serviceName();
QString servicePath();
QString serviceInterface();

/// Under which a request's platform data has an activation token.
QString activationTokenKey();

/// The commands of this menu are the program's actions on the session bus, by the names of their selectors.
void offerToOtherPrograms(const std::shared_ptr<NSMenu>& menu);

/// The offered command with that key, with exactly these modifiers; null if there is none.
std::shared_ptr<NSMenuItem> offeredCommandWithKey(std::string_view keyEquivalent, unsigned modifierMask);

/// The offered command whose selector is `name`. Null, for the reason put into `refusal`, if none is offered, or if a
/// parameter came along: none of them takes one.
std::shared_ptr<NSMenuItem> offeredAction(const QString& name, const QVariantList& parameter, QString& refusal);

/// The program on the session bus, from when that answers to its end. Without a bus it is silent. A program that the
/// bus has started for a request has come forward by that: if the request is the menu's first command, it is done.
class ApplicationService : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  explicit ApplicationService(std::function<void()> activate);
  ~ApplicationService() override;

  // `platformData` may have an activation token; see `takeActivationToken`.

  /// Comes forward.
  Q_INVOKABLE Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
  /// Is an error: there is one note, and no files are opened.
  Q_INVOKABLE Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
  /// Performs the offered action, or is an error that tells why there is none.
  Q_INVOKABLE Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                               const QVariantMap& platformData);

 private:
  void appear();

  std::function<void()> activate_;
  bool owesRequest_;  ///< the one that the bus has started the program for
};

}  // namespace platform::desktop
