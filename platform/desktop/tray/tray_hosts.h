// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>
#include <memory>

#include "platform/desktop/x11/selection_watch.h"

namespace platform::desktop {

class Bus;

/// Which kinds of tray run now. QSystemTrayIcon is not asked: its first use decides for good which kind Qt uses.
class TrayHosts : public QObject {
  Q_OBJECT

 public:
  enum class Kind { StatusNotifier, XEmbed };

  /// `onChange` is called once it is known which trays run, and each time one comes or goes.
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
