// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <functional>
#include <map>

#include "platform/desktop/session/held_key.h"

namespace platform::desktop {

class Bus;
class ExportedActions;
class RequestQueue;
class WindowSystem;

/// The program's object on the session bus, from when the bus first answers until it is destroyed. Where there is no
/// bus, nothing happens. Where the bus has started the program for a request, the note is shown already: a first
/// request that only shows it is not carried out again, for it would hide it.
class ApplicationService : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  /// What it is given outlives it; `activate` brings the program forward.
  ApplicationService(Bus& sessionBus, WindowSystem& windowSystem, RequestQueue& requests,
                     const ExportedActions& actions, std::function<void()> activate);
  ~ApplicationService() override;

  // `platformData` may have an activation token; see `WindowSystem::setActivationToken`.
  /// Shows the note and gives it the keyboard.
  Q_INVOKABLE Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
  /// Always an error: the program opens no files.
  Q_INVOKABLE Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
  /// Performs the action of that name, once while a shortcut's key is held, or answers with an error that says why not.
  Q_INVOKABLE Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                               const QVariantMap& platformData);

 private:
  void registerOnBus();

  Bus& sessionBus_;
  WindowSystem& windowSystem_;
  RequestQueue& requests_;
  const ExportedActions& actions_;
  std::function<void()> activate_;
  std::map<QString, HeldKey> keys_;  ///< of shortcuts of the desktop's that call an action, by its name
  bool startedForRequest_;           ///< and that request has not arrived yet
};

}  // namespace platform::desktop
