// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <functional>

namespace platform::desktop {

class Bus;
class OfferedCommands;
class RequestQueue;
class WindowSystem;

/// The program's name on the session bus, the path of its one object, and that object's interface.
QString serviceName();
QString servicePath();
QString serviceInterface();
/// Under which a request's platform data has an activation token.
QString activationTokenKey();

/// The program on the session bus, from when that answers to its end. Without a bus it is silent. A program that the
/// bus has started for a request has come forward by that: if the request is the menu's first command, it is done.
class ApplicationService : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  /// What it is given outlives it; `activate` brings the program forward.
  ApplicationService(Bus& sessionBus, WindowSystem& windowSystem, RequestQueue& requests,
                     const OfferedCommands& commands, std::function<void()> activate);
  ~ApplicationService() override;

  // `platformData` may have an activation token; see `WindowSystem::setActivationToken`.
  /// Comes forward.
  Q_INVOKABLE Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
  /// Is an error: there is one note, and no files are opened.
  Q_INVOKABLE Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
  /// Performs the offered action, or is an error that tells why there is none.
  Q_INVOKABLE Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                               const QVariantMap& platformData);

 private:
  void appear();

  Bus& sessionBus_;
  WindowSystem& windowSystem_;
  RequestQueue& requests_;
  const OfferedCommands& commands_;
  std::function<void()> activate_;
  bool startedForRequest_;  ///< which has not come yet
};

}  // namespace platform::desktop
