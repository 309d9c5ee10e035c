// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>
#include <memory>

#include "platform/desktop/x11/selection_watch.h"

namespace platform::desktop {

class Bus;

/// Tells which trays there are, without touching Qt's own: that would settle for good which kind it uses.
class TrayHosts : public QObject {
  Q_OBJECT

 public:
  enum class Kind { StatusNotifier, XEmbed };

  /// `onChange` is called once it is known which hosts there are, and each time one comes or goes.
  TrayHosts(Bus& sessionBus, std::function<void()> onChange);
  ~TrayHosts() override;

  bool has(Kind kind) const { return kind == Kind::StatusNotifier ? notifierHost_ : xembedTray_; }

 private:
  Q_SLOT void askNotifierWatcher();
  void watchNotifierHosts();
  void setNotifierHost(bool present);
  void setXEmbedTray(bool present);

  std::function<void()> onChange_;
  QDBusServiceWatcher watcherWatch_;
  std::unique_ptr<SelectionWatch> trayWatch_;
  bool known_ = false;
  bool notifierHost_ = false;
  bool xembedTray_ = false;
};

}  // namespace platform::desktop
