// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>
#include <optional>

#include "platform/desktop/tray/tray_hosts.h"
#include "platform/desktop/views/native_view.h"
#include "platform/image.h"

namespace platform::desktop {

/// The program's item in the tray, whenever there is one. Which kind of tray is settled by the first that appears.
class Tray {
 public:
  /// Looks for trays, some of which are found by the session's bus, from now on. `onChange` is told whether the item is
  /// in one: once that is known, and at each change of the trays.
  Tray(Bus& sessionBus, std::optional<NSImage> image, QMenu& menu, std::function<void()> onPrimaryClick,
       std::function<void(bool inTray)> onChange);
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;

  /// Where the item is: its own place where the tray tells it, else the end of the panel that it is likely to be in,
  /// which is not known; none while there is no tray.
  std::optional<Anchor> place() const;

 private:
  void hostsChanged();
  void showItem(TrayHosts::Kind kind);

  std::optional<NSImage> image_;
  QMenu& menu_;
  std::function<void()> onPrimaryClick_;
  std::function<void(bool)> onChange_;
  std::optional<TrayHosts::Kind> kind_;
  std::unique_ptr<QSystemTrayIcon> item_;
  TrayHosts hosts_;  // the last: it may call back at once
};

}  // namespace platform::desktop
