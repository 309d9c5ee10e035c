// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantMap>
#include <chrono>
#include <functional>
#include <optional>

#include "platform/desktop/dbus/portal_request.h"

namespace platform::desktop {

/// A shortcut as the portal is told of it.
struct PortalShortcut {
  QString id;  ///< the same at every start: what the user chose is kept under it
  QVariantMap properties;
};

/// A session of global shortcuts with one process of the portal, asked for from construction on. Where the portal
/// refuses it or has no shortcuts to give, nothing is heard of it any more. Where it closes the session, another one is
/// asked for after a pause, which grows until a session lasts.
class PortalShortcuts : public QObject {
  Q_OBJECT

 public:
  /// Gets a shortcut's id, and a token that lets a window take the keyboard; empty if the portal gave none.
  using Activated = std::function<void(const QString& id, const QString& activationToken)>;
  /// Gets a shortcut's id, and what the desktop calls the keys that the user has for it; empty if it does not tell.
  using KeysChanged = std::function<void(const QString& id, const QString& keys)>;

  /// Told when the portal begins to ask the user for the shortcuts, if it does, and when that is over.
  using Asking = std::function<void(bool asking)>;

  PortalShortcuts(Portal portal, const QList<PortalShortcut>& shortcuts, Activated activated, KeysChanged keysChanged,
                  Asking asking);

  const Portal& portal() const { return portal_; }

 private:
  Q_SLOT void onCreated(const QVariantMap& results);
  /// The user has chosen other keys.
  Q_SLOT void onShortcutsChanged(const QDBusMessage& message);
  Q_SLOT void onActivated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                          const QVariantMap& options);
  Q_SLOT void onClosed(const QDBusMessage& message);

  void listen();
  void tellName();
  void createSession();
  void bindUnlessBound();
  void askAgainIfGivenBefore();
  void renewLater();
  bool isEachIn(const QVariantMap& results) const;
  void tellKeys(const QVariantMap& results) const;
  bool isOurs(const QDBusObjectPath& session) const;
  void bind();

  Portal portal_;
  QList<PortalShortcut> shortcuts_;
  Activated activated_;
  KeysChanged keysChanged_;
  Asking asking_;
  QString session_;  ///< empty before it is created and after it is closed
  QTimer renewal_;
  std::chrono::milliseconds pause_;
  QElapsedTimer lifetime_;  ///< of the session
  std::optional<PortalRequest> creation_;
  std::optional<PortalRequest> listing_;
  std::optional<PortalRequest> binding_;
};

}  // namespace platform::desktop
