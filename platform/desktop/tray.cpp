// SPDX-License-Identifier: MIT
#include "platform/desktop/tray.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/strings.h"
#include "platform/desktop/symbols.h"

namespace platform::desktop {
namespace {

// Panels are light or dark whatever the desktop's palette is: 3 : 1 and more on white and on a panel of #303030.
const QColor colourForAnyPanel(0x88, 0x88, 0x88);

constexpr int distanceFromEnd = 24;  // of the screen, in points

/// Hosts of notifier items draw a symbolic icon from the theme in their own colours.
QIcon iconFor(const std::optional<NSImage>& image, TrayHosts::Kind kind) {
  if (!image) return {};
  const QIcon drawn = symbolIcon(image->symbolName, colourForAnyPanel);
  const QString name = toQString(metadata::identifier) + QStringLiteral("-symbolic");
  const bool themed = kind == TrayHosts::Kind::StatusNotifier && QIcon::hasThemeIcon(name);
  return themed ? QIcon::fromTheme(name, drawn) : drawn;
}

}  // namespace

Tray::Tray(std::optional<NSImage> image, QMenu& menu, std::function<void()> onPrimaryClick,
           std::function<void(bool)> onChange)
    : image_(std::move(image)),
      menu_(menu),
      onPrimaryClick_(std::move(onPrimaryClick)),
      onChange_(std::move(onChange)),
      hosts_([this] { hostsChanged(); }) {}

void Tray::hostsChanged() {
  if (!kind_) {
    if (hosts_.has(TrayHosts::Kind::StatusNotifier)) {
      kind_ = TrayHosts::Kind::StatusNotifier;
    } else if (hosts_.has(TrayHosts::Kind::XEmbed)) {
      kind_ = TrayHosts::Kind::XEmbed;
    }
  }
  const bool present = kind_ && hosts_.has(*kind_);
  if (!present) {
    item_.reset();
  } else if (!item_) {
    showItem(*kind_);
  }
  onChange_(present);
}

std::optional<QRect> Tray::place() const {
  if (!item_) return std::nullopt;
  const QRect told = item_->geometry();
  if (!told.isEmpty()) return told;
  const QScreen& screen = *QGuiApplication::primaryScreen();
  const QRect whole = screen.geometry();
  const QRect room = screen.availableGeometry();
  const bool panelBelow = room.bottom() < whole.bottom() && room.top() == whole.top();
  const int end = QGuiApplication::isRightToLeft() ? whole.left() + distanceFromEnd : whole.right() - distanceFromEnd;
  return panelBelow ? QRect(QPoint(end, room.bottom() + 1), QPoint(end, whole.bottom()))
                    : QRect(QPoint(end, whole.top()), QPoint(end, std::max(whole.top(), room.top() - 1)));
}

void Tray::showItem(TrayHosts::Kind kind) {
  item_ = std::make_unique<QSystemTrayIcon>(iconFor(image_, kind));
  item_->setToolTip(toQString(metadata::name));
  item_->setContextMenu(&menu_);
  QObject::connect(item_.get(), &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
    // The second of two quick clicks comes as a double click.
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) onPrimaryClick_();
  });
  item_->show();
}

}  // namespace platform::desktop
