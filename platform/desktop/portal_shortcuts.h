// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusObjectPath>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <optional>

#include "platform/desktop/portal_request.h"

namespace platform::desktop {

/// A shortcut as the portal is told of it.
struct PortalShortcut {
  QString id;  ///< the same at every start: what the user chose is kept under it
  QVariantMap properties;
};

/// A session of global shortcuts with one process of the portal, asked for from construction on. Where the portal
/// refuses it, has no shortcuts to give or closes the session, nothing is heard of it any more.
class PortalShortcuts : public QObject {
  Q_OBJECT

 public:
  /// Gets a shortcut's id, and a token that lets a window take the keyboard; empty if the portal gave none.
  using Activated = std::function<void(const QString& id, const QString& activationToken)>;

  PortalShortcuts(Portal portal, const QList<PortalShortcut>& shortcuts, Activated activated);

  const Portal& portal() const { return portal_; }

 private:
  Q_SLOT void onCreated(const QVariantMap& results);
  Q_SLOT void onBound();
  Q_SLOT void onActivated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                          const QVariantMap& options);
  Q_SLOT void onClosed();

  void tellName();
  void createSession();
  void bindUnlessBound();
  bool isEachIn(const QVariantMap& results) const;
  void bind();

  Portal portal_;
  QList<PortalShortcut> shortcuts_;
  Activated activated_;
  QString session_;  ///< empty before it is created and after it is closed
  bool bound_ = false;
  std::optional<PortalRequest> creation_;
  std::optional<PortalRequest> listing_;
  std::optional<PortalRequest> binding_;
};

}  // namespace platform::desktop
