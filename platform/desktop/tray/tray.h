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

/// The program's icon in the tray, while there is a tray. The first tray that appears decides which kind is used.
class Tray {
 public:
  /// Looks for trays from now on. `onChange` is called with whether the icon is in one: once that is known, and
  /// whenever a tray comes or goes.
  Tray(Bus& sessionBus, std::optional<NSImage> image, QMenu& menu, std::function<void()> onPrimaryClick,
       std::function<void(bool inTray)> onChange);
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;

  /// The icon's place. If the tray does not tell it: the end of the likely panel, marked as not known. Nothing while
  /// there is no tray.
  std::optional<Anchor> anchor() const;

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
