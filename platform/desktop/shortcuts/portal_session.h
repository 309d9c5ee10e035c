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
#include <map>
#include <optional>

#include "platform/desktop/session/held_key.h"
#include "platform/desktop/shortcuts/portal_request.h"

namespace platform::desktop {

/// A shortcut in the portal's terms.
struct PortalShortcut {
  QString id;  ///< the same at every start: the desktop stores the user's choice under it
  QVariantMap properties;
};

/// A session of the portal's GlobalShortcuts interface with one portal process, requested on construction. If the
/// portal has no global shortcuts or refuses, none of the callbacks is ever called. If it closes the session, another
/// one is requested after a pause, which doubles until a session lasts.
class PortalSession : public QObject {
  Q_OBJECT

 public:
  /// Called for each press with a shortcut's id and an activation token, which is empty if the portal sent none.
  using Activated = std::function<void(const QString& id, const QString& activationToken)>;
  /// Called with a shortcut's id and the desktop's name for the keys that the user has chosen, empty if it sends none.
  using KeysChanged = std::function<void(const QString& id, const QString& keys)>;
  /// Called when the portal may show a dialog about the shortcuts, and when that is over.
  using Asking = std::function<void(bool asking)>;

  PortalSession(Portal portal, const QList<PortalShortcut>& shortcuts, Activated activated, KeysChanged keysChanged,
                Asking asking);

  const Portal& portal() const { return portal_; }

 private:
  Q_SLOT void onCreated(const QVariantMap& results);
  Q_SLOT void onShortcutsChanged(const QDBusMessage& message);
  Q_SLOT void onActivated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                          const QVariantMap& options);
  Q_SLOT void onDeactivated(const QDBusObjectPath& session, const QString& id);
  Q_SLOT void onClosed(const QDBusMessage& message);

  void listenToPortal();
  void registerAppId();
  void createSession();
  void bindUnlessBound();
  void retryIfGrantedBefore();
  void retryLater();
  bool isEachIn(const QVariantMap& results) const;
  void tellKeys(const QVariantMap& results) const;
  bool isOurs(const QDBusObjectPath& session) const;
  void bind();

  Portal portal_;
  QList<PortalShortcut> shortcuts_;
  Activated activated_;
  KeysChanged keysChanged_;
  Asking asking_;
  std::map<QString, HeldKey> keys_;  ///< by the shortcut's id
  QString session_;                  ///< empty before it is created and after it is closed
  QTimer retry_;
  std::chrono::milliseconds backoff_;
  QElapsedTimer lifetime_;  ///< of the session
  std::optional<PortalRequest> creation_;
  std::optional<PortalRequest> listing_;
  std::optional<PortalRequest> binding_;
};

}  // namespace platform::desktop
